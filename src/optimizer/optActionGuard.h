// Marks a node as inside its own `action` for the length of a scope. A
// world may name a node inside itself (a USE of an enclosing DEF); without
// the mark a build or a refresh would follow that loop until the stack
// ran out. A node reached again while it acts is treated as a child that
// gives no object.
#ifndef OPT_ACTION_GUARD_H
#define OPT_ACTION_GUARD_H

class optActionGuard {
public:
    explicit optActionGuard(const void* node);
    ~optActionGuard();
    optActionGuard(const optActionGuard&) = delete;
    optActionGuard& operator=(const optActionGuard&) = delete;

    // False when the node was already acting further up the call chain.
    bool entered() const { return first; }

private:
    const void* node;  // borrowed: only compared, never followed
    bool first;
};

#endif
