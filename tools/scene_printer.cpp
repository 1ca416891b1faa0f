#include "scene_printer.h"

#include <cstdio>
#include <string>
#include <vector>

#include "csAnchor.h"
#include "csAppearance.h"
#include "csBackground.h"
#include "csBillboard.h"
#include "csCollision.h"
#include "csDirectionalLight.h"
#include "csEnvironment.h"
#include "csFog.h"
#include "csGroup.h"
#include "csImage.h"
#include "csIndexedFaceSet.h"
#include "csInline.h"
#include "csLOD.h"
#include "csLineStripSet.h"
#include "csMaterial.h"
#include "csMovieTexture.h"
#include "csNavigationInfo.h"
#include "csScreenAlignedText.h"
#include "csShape.h"
#include "csSpotLight.h"
#include "csSwitch.h"
#include "csTexture.h"
#include "csTransform.h"
#include "csViewpoint.h"
#include "csWorldInfo.h"
#include "opCone.h"
#include "opCuboid.h"
#include "opCylinder.h"
#include "json_text.h"
#include "opSphere.h"

namespace {

// One printed value: numbers, a truth value, a text or a list of texts.
// Numbers remember whether they are floats or counts, so that JSON gives
// each the shortest text that reads back to it.
struct Value {
    enum Kind { Numbers, Bool, Text, Texts } kind = Numbers;
    std::vector<double> numbers;
    bool integral = false;
    bool truth = false;
    std::string text;
    std::vector<std::string> texts;
};

// An object as both printers see it: what to print, in order.
struct Item {
    std::string className;
    const char* name = nullptr;
    std::vector<std::pair<std::string, Value>> values;
    // Held objects: a key, whether it is a list, and the objects.
    struct Section {
        std::string key;
        bool list;
        std::vector<Item> items;
    };
    std::vector<Section> sections;

    void add(const char* key, const std::vector<float>& floats) {
        Value v;
        v.numbers.assign(floats.begin(), floats.end());
        values.emplace_back(key, std::move(v));
    }
    void add(const char* key, float number) { add(key, std::vector<float>{number}); }
    void add(const char* key, int count) {
        Value v;
        v.numbers.push_back(count);
        v.integral = true;
        values.emplace_back(key, std::move(v));
    }
    void add(const char* key, const csVec3f& v) { add(key, std::vector<float>{v[0], v[1], v[2]}); }
    void add(const char* key, const csVec4f& v) { add(key, std::vector<float>{v[0], v[1], v[2], v[3]}); }
    // Colours one after the other, three numbers each.
    void add(const char* key, const std::vector<csVec3f>& colours) {
        std::vector<float> numbers;
        for (const csVec3f& c : colours) numbers.insert(numbers.end(), {c[0], c[1], c[2]});
        add(key, numbers);
    }
    void flag(const char* key, bool on) {
        Value v;
        v.kind = Value::Bool;
        v.truth = on;
        values.emplace_back(key, std::move(v));
    }
    void text(const char* key, const std::string& s) {
        Value v;
        v.kind = Value::Text;
        v.text = s;
        values.emplace_back(key, std::move(v));
    }
    void texts(const char* key, const std::vector<std::string>& list) {
        Value v;
        v.kind = Value::Texts;
        v.texts = list;
        values.emplace_back(key, std::move(v));
    }
    void hold(const char* key, Item item) { sections.push_back({key, false, {std::move(item)}}); }
};

template <class T>
const T* as(const csObject* o) {
    return o->isOfType(T::getClassType()) ? static_cast<const T*>(o) : nullptr;
}

int countOf(const csContainer* set) {
    if (set == nullptr) return 0;
    csField* f = const_cast<csContainer*>(set)->getField(1);
    return f ? f->getCount() : 0;
}

Item describe(csObject* object);

void describeGeometry(Item& item, const csGeometry* g) {
    if (const auto* set = as<csGeoSet>(g)) {
        item.add("primitives", set->getPrimCount());
        item.add("vertices", countOf(set->getCoordSet()));
        item.add("indices", countOf(set->getCoordIndexSet()));
        item.add("normals", countOf(set->getNormalSet()));
        item.add("colors", countOf(set->getColorSet()));
        item.add("texCoords", countOf(set->getTexCoordSet()));
        item.add("normalBind", set->getNormalBind());
        item.add("colorBind", set->getColorBind());
        item.add("texCoordBind", set->getTexCoordBind());
    }
    if (const auto* faces = as<csIndexedFaceSet>(g)) {
        item.flag("solid", faces->getSolid());
        item.flag("convex", faces->getConvex());
    }
    if (const auto* lines = as<csLineStripSet>(g)) item.add("width", lines->getWidth());
    if (const auto* text = as<csScreenAlignedText>(g)) {
        item.text("text", text->getText().getString());
        item.add("face", text->getFace());
        item.add("size", text->getSize());
        item.add("color", text->getColor());
    }
    csBoxBound bound;
    g->getBoxBound(&bound);
    if (!bound.isEmpty()) {
        item.add("boundMin", bound.min);
        item.add("boundMax", bound.max);
    }
}

void describePrimitive(Item& item, const csObject* o) {
    if (const auto* s = as<opSphere>(o)) item.add("radius", s->getRadius());
    if (const auto* c = as<opCone>(o)) {
        item.add("bottomRadius", c->getBottomRadius());
        item.add("height", c->getHeight());
        item.flag("side", c->getSide());
        item.flag("bottom", c->getBottom());
    }
    if (const auto* c = as<opCylinder>(o)) {
        item.add("radius", c->getRadius());
        item.add("height", c->getHeight());
        item.flag("side", c->getSide());
        item.flag("top", c->getTop());
        item.flag("bottom", c->getBottom());
    }
    if (const auto* c = as<opCuboid>(o)) item.add("size", c->getSize());
}

// The nodes that say how to view the world and what it is.
void describeWorldNode(Item& item, const csObject* o) {
    if (const auto* v = as<csViewpoint>(o)) {
        item.add("position", v->getPosition());
        item.add("orientation", v->getOrientation());
        item.add("fieldOfView", v->getFieldOfView());
        item.flag("jump", v->getJump());
        item.text("description", v->getDescription());
    }
    if (const auto* n = as<csNavigationInfo>(o)) {
        item.add("avatarSize", n->getAvatarSize());
        item.flag("headlight", n->getHeadlight());
        item.add("speed", n->getSpeed());
        item.texts("type", n->getTypes());
        item.add("visibilityLimit", n->getVisibilityLimit());
    }
    if (const auto* b = as<csBackground>(o)) {
        item.add("skyColor", b->getSkyColors());
        item.add("skyAngle", b->getSkyAngles());
        item.add("groundColor", b->getGroundColors());
        item.add("groundAngle", b->getGroundAngles());
        static const std::pair<csBackground::Side, const char*> sides[] = {
            {csBackground::BACK, "backUrl"},   {csBackground::BOTTOM, "bottomUrl"}, {csBackground::FRONT, "frontUrl"},
            {csBackground::LEFT, "leftUrl"},   {csBackground::RIGHT, "rightUrl"},   {csBackground::TOP, "topUrl"}};
        for (const auto& [side, key] : sides) item.texts(key, b->getUrl(side));
    }
    if (const auto* f = as<csFog>(o)) {
        item.add("color", f->getColor());
        item.text("fogType", f->getFogType());
        item.add("visibilityRange", f->getVisibilityRange());
    }
    if (const auto* w = as<csWorldInfo>(o)) {
        item.text("title", w->getTitle());
        item.texts("info", w->getInfo());
    }
}

Item describe(csObject* object) {
    Item item;
    item.className = object->getType()->getName();
    item.name = object->getName();
    if (const auto* t = as<csTransform>(object)) {
        item.add("translation", t->getTranslation());
        item.add("rotation", t->getRotation());
        item.add("scale", t->getScale());
        item.add("scaleOrientation", t->getScaleOrientation());
        item.add("center", t->getCenter());
    }
    if (const auto* s = as<csSwitch>(object)) item.add("whichChild", s->getWhichChild());
    if (const auto* c = as<csCollision>(object)) item.flag("collide", c->getCollide());
    if (const auto* l = as<csLOD>(object)) {
        item.add("range", l->getRanges());
        item.add("center", l->getCenter());
    }
    if (const auto* b = as<csBillboard>(object)) item.add("axisOfRotation", b->getAxisOfRotation());
    if (const auto* a = as<csAnchor>(object)) {
        item.texts("url", a->getUrl());
        item.text("description", a->getDescription());
        item.texts("parameter", a->getParameter());
    }
    if (const auto* i = as<csInline>(object)) {
        item.texts("url", i->getUrl());
        item.add("bboxCenter", i->getBboxCenter());
        item.add("bboxSize", i->getBboxSize());
    }
    if (const auto* l = as<csLight>(object)) {
        item.flag("on", l->getOn());
        item.add("intensity", l->getIntensity());
        item.add("ambientIntensity", l->getAmbientIntensity());
        item.add("color", l->getColor());
    }
    if (const auto* d = as<csDirectionalLight>(object)) item.add("direction", d->getDirection());
    if (const auto* p = as<csPointLight>(object)) {
        item.add("location", p->getLocation());
        item.add("radius", p->getRadius());
        item.add("attenuation", p->getAttenuation());
    }
    if (const auto* s = as<csSpotLight>(object)) {
        item.add("direction", s->getDirection());
        item.add("beamWidth", s->getBeamWidth());
        item.add("cutOffAngle", s->getCutOffAngle());
    }
    describeWorldNode(item, object);
    if (const auto* m = as<csMaterial>(object)) {
        item.add("ambientColor", m->getAmbientColor());
        item.add("diffuseColor", m->getDiffuseColor());
        item.add("specularColor", m->getSpecularColor());
        item.add("emissiveColor", m->getEmissiveColor());
        item.add("shininess", m->getShininess());
        item.add("transparency", m->getTransparency());
    }
    if (const auto* a = as<csAppearance>(object)) {
        item.flag("lightEnable", a->getLightEnable());
        item.flag("materialModeEnable", a->getMaterialModeEnable());
        item.flag("transpEnable", a->getTranspEnable());
        item.add("transpMode", a->getTranspMode());
        item.flag("texEnable", a->getTexEnable());
        item.add("texEnv", a->getTexEnv());
        item.add("texMode", a->getTexMode());
        if (a->getMaterial()) item.hold("material", describe(a->getMaterial()));
        if (a->getTexture()) item.hold("texture", describe(a->getTexture()));
    }
    if (const auto* t = as<csTexture>(object)) {
        if (const auto* m = as<csMovieTexture>(object)) {
            item.texts("url", m->getUrl());
            item.flag("loop", m->getLoop());
            item.add("speed", m->getSpeed());
        }
        if (*t->getFileName() != '\0') item.text("fileName", t->getFileName());
        item.add("format", t->getFormat());
        item.add("repeatS", t->getRepeatS());
        item.add("repeatT", t->getRepeatT());
        if (t->getImage()) item.hold("image", describe(t->getImage()));
    }
    if (const auto* i = as<csImage>(object)) {
        item.add("width", i->getWidth());
        item.add("height", i->getHeight());
        item.add("components", i->getComponents());
    }
    if (const auto* g = as<csGeometry>(object)) describeGeometry(item, g);
    describePrimitive(item, object);
    if (auto* shape = const_cast<csShape*>(as<csShape>(object))) {
        if (shape->getAppearance()) item.hold("appearance", describe(shape->getAppearance()));
        shape->validateField(csShape::GEOMETRY);
        Item::Section geometry{"geometry", true, {}};
        for (int i = 0; i < shape->getGeometryCount(); ++i)
            if (shape->getGeometry(i)) geometry.items.push_back(describe(shape->getGeometry(i)));
        item.sections.push_back(std::move(geometry));
    }
    if (auto* env = const_cast<csEnvironment*>(as<csEnvironment>(object)))
        item.add("lights", env->lights().getCount());
    if (auto* group = const_cast<csGroup*>(as<csGroup>(object))) {
        group->validateField(csGroup::CHILDREN);
        Item::Section children{"children", true, {}};
        for (int i = 0; i < group->getChildCount(); ++i) {
            csNode* child = group->getChild(i);
            if (child) children.items.push_back(describe(child));
        }
        item.sections.push_back(std::move(children));
    }
    return item;
}

std::string number(double v) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%g", v);
    return buf;
}

// ---- Text

void indent(std::ostream& out, int depth) {
    for (int i = 0; i < depth; ++i) out << "  ";
}

void printObjectLine(std::ostream& out, const char* className, const char* name, int depth) {
    indent(out, depth);
    out << className;
    if (name != nullptr) out << " \"" << name << '"';
    out << '\n';
}

void printText(std::ostream& out, const Item& item, int depth) {
    printObjectLine(out, item.className.c_str(), item.name, depth);
    for (const auto& [key, value] : item.values) {
        if (key == "lights" && depth == 0) continue;  // the root shows its list after the tree
        indent(out, depth + 1);
        out << key << ':';
        if (value.kind == Value::Bool)
            out << ' ' << (value.truth ? 1 : 0);
        else if (value.kind == Value::Text)
            out << " \"" << value.text << '"';
        else if (value.kind == Value::Texts)
            for (const std::string& text : value.texts) out << " \"" << text << '"';
        else
            for (double n : value.numbers) out << ' ' << number(n);
        out << '\n';
    }
    for (const auto& section : item.sections)
        for (const Item& held : section.items) printText(out, held, depth + 1);
}

// ---- JSON

void jsonValueNumber(std::ostream& out, const Value& value, double number) {
    if (value.integral)
        jsonNumber(out, static_cast<long long>(number));
    else
        jsonNumber(out, static_cast<float>(number));
}

// What the root refers to after its tree: a class and a name, or null.
void jsonReference(std::ostream& out, const csContainer* object) {
    if (object == nullptr) {
        out << "null";
        return;
    }
    out << "{\"class\": ";
    jsonString(out, object->getType()->getName());
    out << ", \"name\": ";
    if (object->getName())
        jsonString(out, object->getName());
    else
        out << "null";
    out << '}';
}

void jsonReferences(std::ostream& out, const char* key, const csMFRef& list) {
    out << ", ";
    jsonString(out, key);
    out << ": [";
    for (int i = 0; i < list.getCount(); ++i) {
        if (i) out << ", ";
        jsonReference(out, list.get(i));
    }
    out << ']';
}

// The objects that the root binds at the start, by their keys.
std::vector<std::pair<const char*, const csContainer*>> boundBy(const csEnvironment& root) {
    return {{"viewpoint", root.getViewpoint()},
            {"navigationInfo", root.getNavigationInfo()},
            {"background", root.getBackground()},
            {"fog", root.getFog()},
            {"worldInfo", root.getWorldInfo()}};
}

void printJson(std::ostream& out, const Item& item, const csEnvironment* root) {
    out << "{\"class\": ";
    jsonString(out, item.className);
    out << ", \"name\": ";
    if (item.name)
        jsonString(out, item.name);
    else
        out << "null";
    for (const auto& [key, value] : item.values) {
        if (key == "lights" && root) continue;
        out << ", ";
        jsonString(out, key);
        out << ": ";
        if (value.kind == Value::Bool) {
            out << (value.truth ? "true" : "false");
        } else if (value.kind == Value::Text) {
            jsonString(out, value.text);
        } else if (value.kind == Value::Texts) {
            out << '[';
            for (size_t i = 0; i < value.texts.size(); ++i) {
                if (i) out << ", ";
                jsonString(out, value.texts[i]);
            }
            out << ']';
        } else if (value.numbers.size() == 1) {
            jsonValueNumber(out, value, value.numbers[0]);
        } else {
            out << '[';
            for (size_t i = 0; i < value.numbers.size(); ++i) {
                if (i) out << ", ";
                jsonValueNumber(out, value, value.numbers[i]);
            }
            out << ']';
        }
    }
    for (const auto& section : item.sections) {
        out << ", ";
        jsonString(out, section.key);
        out << ": ";
        if (!section.list) {
            printJson(out, section.items.front(), nullptr);
            continue;
        }
        out << '[';
        for (size_t i = 0; i < section.items.size(); ++i) {
            if (i) out << ", ";
            printJson(out, section.items[i], nullptr);
        }
        out << ']';
    }
    if (root) {
        jsonReferences(out, "lights", root->lights());
        jsonReferences(out, "viewpoints", root->viewpoints());
        for (const auto& [key, object] : boundBy(*root)) {
            out << ", ";
            jsonString(out, key);
            out << ": ";
            jsonReference(out, object);
        }
    }
    out << '}';
}

const csEnvironment* rootEnvironment(csNode* root) {
    if (root == nullptr || !root->isOfType(csEnvironment::getClassType())) return nullptr;
    return static_cast<csEnvironment*>(root);
}

void printReferences(std::ostream& out, const csMFRef& list) {
    for (int i = 0; i < list.getCount(); ++i) {
        const csContainer* object = list.get(i);
        if (object)
            printObjectLine(out, object->getType()->getName(), object->getName(), 1);
        else
            printObjectLine(out, "NULL", nullptr, 1);
    }
}

}  // namespace

void printSceneTree(std::ostream& out, csNode* root) {
    if (root == nullptr) {
        out << "NULL\n";
        return;
    }
    printText(out, describe(root), 0);
    const csEnvironment* environment = rootEnvironment(root);
    if (environment == nullptr) return;
    out << "lights " << environment->lights().getCount() << '\n';
    printReferences(out, environment->lights());
    if (environment->viewpoints().getCount() > 0) {
        out << "viewpoints " << environment->viewpoints().getCount() << '\n';
        printReferences(out, environment->viewpoints());
    }
    for (const auto& [key, object] : boundBy(*environment)) {
        if (object == nullptr) continue;
        out << key << ' ';
        printObjectLine(out, object->getType()->getName(), object->getName(), 0);
    }
}

void printSceneJson(std::ostream& out, csNode* root) {
    out << "{\"formatVersion\": " << kWrlloadJsonFormatVersion << ", \"scene\": ";
    if (root == nullptr)
        out << "null";
    else
        printJson(out, describe(root), rootEnvironment(root));
    out << "}\n";
}
