#include "vrmlnodes/FontStyle.h"

FontStyle::FontStyle(znInternal* pair)
    : BaseNode(pair),
      family(plainField<MFString>("family")),
      horizontal(plainField<SFBool>("horizontal")),
      justify(plainField<MFString>("justify")),
      language(plainField<SFString>("language")),
      leftToRight(plainField<SFBool>("leftToRight")),
      size(plainField<SFFloat>("size")),
      spacing(plainField<SFFloat>("spacing")),
      style(plainField<SFString>("style")),
      topToBottom(plainField<SFBool>("topToBottom")) {}
