// What the input of one load may make the loader spend. A few bytes of
// text can ask for gigabytes: a PROTO whose body holds two instances of
// another, ten levels down; an Extrusion of a long spine and a long
// cross-section; a small picture file that unpacks to a huge image. Such
// costs are weighed against one limit before they are paid, and what would
// pass it is left out with a report, rather than the host running out of
// memory.
//
// The limit is ZN_MEMORY_LIMIT megabytes; unset, half the machine's memory.
#ifndef ZN_MEMORY_BUDGET_H
#define ZN_MEMORY_BUDGET_H

#include <cstddef>
#include <string>
#include <type_traits>

// What one node costs, about, from its records to its runtime node and its
// scene objects. Nodes are charged at this rate, as their real cost is
// spread over many small allocations.
inline constexpr std::size_t kZnNodeCost = 2048;

// The limit in bytes, as the environment sets it now.
std::size_t znMemoryLimit();
// A size as reports give it: "512 bytes", "1.5 KB", "256.0 MB".
std::string znSizeText(std::size_t bytes);

class znMemoryBudget {
public:
    // A budget that adds up what it grants (a load's), or one that weighs
    // each cost on its own against the limit (outside a load).
    explicit znMemoryBudget(std::size_t limit, bool addsUp = true) : limit_(limit), addsUp_(addsUp) {}

    // Takes `bytes`, `count` times, from what is left. When they are not
    // there nothing is taken and the answer is false; the first refusal of
    // the budget is reported, naming what was refused: `what` is a text
    // ("A list of 5000000 values") or something that makes one, called only
    // then, so that a cost paid often pays for no words.
    template <class What>
    bool take(std::size_t bytes, std::size_t count, const What& what) {
        if (fits(bytes, count)) {
            if (addsUp_) used_ += bytes * count;
            return true;
        }
        if (!refused_) {
            if constexpr (std::is_invocable_v<const What&>)
                reportRefusal(std::string(what()).c_str(), bytes, count);
            else
                reportRefusal(what, bytes, count);
        }
        refused_ = true;
        return false;
    }

    std::size_t limit() const { return limit_; }
    std::size_t used() const { return used_; }
    // Something was refused.
    bool refused() const { return refused_; }

private:
    bool fits(std::size_t bytes, std::size_t count) const { return count == 0 || bytes <= (limit_ - used_) / count; }
    void reportRefusal(const char* what, std::size_t bytes, std::size_t count) const;

    std::size_t limit_;
    std::size_t used_ = 0;
    bool addsUp_;
    bool refused_ = false;
};

// The budget of the load running on this thread, or, outside a load, one
// that weighs each cost on its own against the limit.
znMemoryBudget& znBudget();

// A fresh budget of znMemoryLimit() for this thread, for the life of the
// object: one load.
class znBudgetScope {
public:
    znBudgetScope();
    ~znBudgetScope();
    znBudgetScope(const znBudgetScope&) = delete;
    znBudgetScope& operator=(const znBudgetScope&) = delete;

    znMemoryBudget& budget() { return own; }

private:
    znMemoryBudget own;
    znMemoryBudget* previous;
};

#endif
