// Drawing modes that appearances choose among.
#ifndef CS_CONTEXT_H
#define CS_CONTEXT_H

class csContext {
public:
    enum TranspModeEnum { FAST_TRANSP = 0, NICE_TRANSP = 1, BLEND_TRANSP = 2, SCREEN_DOOR_TRANSP = 3 };
    enum TexEnvEnum { MODULATE_TENV = 0, BLEND_TENV = 1, DECAL_TENV = 2, REPLACE_TENV = 3 };
    enum TexModeEnum { FAST_TEX = 0, NICE_TEX = 1 };
};

#endif
