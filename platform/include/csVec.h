// Small fixed vectors of the scene-graph toolkit: csVec2f, csVec3f, csVec4f.
#ifndef CS_VEC_H
#define CS_VEC_H

#include <cmath>
#include <cstddef>
#include <vector>

class csVec2f {
public:
    csVec2f() = default;
    csVec2f(float x, float y) : vec{x, y} {}
    void set(float x, float y) { vec[0] = x; vec[1] = y; }
    float& operator[](int i) { return vec[i]; }
    float operator[](int i) const { return vec[i]; }
    bool operator==(const csVec2f& o) const { return vec[0] == o.vec[0] && vec[1] == o.vec[1]; }

    float vec[2] = {0.0f, 0.0f};
};

class csVec3f {
public:
    csVec3f() = default;
    csVec3f(float x, float y, float z) : vec{x, y, z} {}
    void set(float x, float y, float z) { vec[0] = x; vec[1] = y; vec[2] = z; }
    float& operator[](int i) { return vec[i]; }
    float operator[](int i) const { return vec[i]; }
    bool operator==(const csVec3f& o) const {
        return vec[0] == o.vec[0] && vec[1] == o.vec[1] && vec[2] == o.vec[2];
    }

    // The arithmetic is inline: geometry code runs it once per corner.
    float dot(const csVec3f& o) const { return vec[0] * o.vec[0] + vec[1] * o.vec[1] + vec[2] * o.vec[2]; }
    float length() const { return std::sqrt(dot(*this)); }
    // Scales to unit length and answers the old length; a zero vector stays
    // zero, so that a degenerate normal never becomes NaN.
    float normalize() {
        float len = length();
        if (len > 0.0f) {
            vec[0] /= len;
            vec[1] /= len;
            vec[2] /= len;
        }
        return len;
    }
    // This vector becomes a x b; `a` or `b` may be this vector.
    void cross(const csVec3f& a, const csVec3f& b) {
        float x = a.vec[1] * b.vec[2] - a.vec[2] * b.vec[1];
        float y = a.vec[2] * b.vec[0] - a.vec[0] * b.vec[2];
        float z = a.vec[0] * b.vec[1] - a.vec[1] * b.vec[0];
        set(x, y, z);
    }
    void add(const csVec3f& a, const csVec3f& b) { set(a.vec[0] + b.vec[0], a.vec[1] + b.vec[1], a.vec[2] + b.vec[2]); }
    void sub(const csVec3f& a, const csVec3f& b) { set(a.vec[0] - b.vec[0], a.vec[1] - b.vec[1], a.vec[2] - b.vec[2]); }
    void scale(float s, const csVec3f& v);
    bool almostEqual(const csVec3f& o, float tolerance) const;

    float vec[3] = {0.0f, 0.0f, 0.0f};
};

class csVec4f {
public:
    csVec4f() = default;
    csVec4f(float x, float y, float z, float w) : vec{x, y, z, w} {}
    void set(float x, float y, float z, float w) { vec[0] = x; vec[1] = y; vec[2] = z; vec[3] = w; }
    float& operator[](int i) { return vec[i]; }
    float operator[](int i) const { return vec[i]; }
    bool operator==(const csVec4f& o) const {
        return vec[0] == o.vec[0] && vec[1] == o.vec[1] && vec[2] == o.vec[2] && vec[3] == o.vec[3];
    }

    float vec[4] = {0.0f, 0.0f, 0.0f, 0.0f};
};

// A growing array of 3-vectors for scratch work outside the fields.
class csVec3fArray {
public:
    csVec3fArray() = default;
    explicit csVec3fArray(int count) : _values(count > 0 ? static_cast<std::size_t>(count) : 0) {}
    int getCount() const { return static_cast<int>(_values.size()); }
    // Grows the array when `index` lies beyond its end; a negative index is
    // ignored.
    void set(int index, const csVec3f& value);
    // The value at `index`, or a zero vector outside the array.
    csVec3f get(int index) const;

private:
    std::vector<csVec3f> _values;
};

#endif
