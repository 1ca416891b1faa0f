// Small fixed vectors of the scene-graph toolkit: csVec2f, csVec3f, csVec4f.
#ifndef CS_VEC_H
#define CS_VEC_H

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

    float dot(const csVec3f& o) const { return vec[0] * o.vec[0] + vec[1] * o.vec[1] + vec[2] * o.vec[2]; }
    float length() const;
    // Scales to unit length and answers the old length; a zero vector stays
    // zero, so that a degenerate normal never becomes NaN.
    float normalize();
    // This vector becomes a x b.
    void cross(const csVec3f& a, const csVec3f& b);
    void add(const csVec3f& a, const csVec3f& b);
    void sub(const csVec3f& a, const csVec3f& b);
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
