#include "ConfigurationDiff.h"

#include "ConfigurationModel.h"
#include "ConfigurationValue.h"
#include "MemberPath.h"
#include "TextEncoding.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace zeltcfg {

namespace {

using Symbols = std::vector<std::uint32_t>;
using Position = std::ptrdiff_t;

// Numbers texts in the order they first come, equal numbers for equal texts,
// so that the search compares integers instead of strings. An open-addressing
// table of at least twice as many slots as texts: one allocation, not one for
// each text.
class TextNumbering {
public:
    explicit TextNumbering(std::size_t texts) {
        std::size_t size = 16;
        while (size < 2 * texts) size *= 2;
        slots_.resize(size);
        texts_.reserve(texts);
    }

    std::uint32_t Number(const std::string& text) {
        const std::size_t hash = std::hash<std::string_view>()(text);
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
            Slot& slot = slots_[i];
            if (slot.number == 0) {
                texts_.push_back(&text);
                slot = Slot{hash, static_cast<std::uint32_t>(texts_.size())};
                return slot.number;
            }
            if (slot.hash == hash && *texts_[slot.number - 1] == text) return slot.number;
        }
    }

private:
    struct Slot {
        std::size_t hash = 0;
        std::uint32_t number = 0;  // 0: the slot is free
    };
    std::vector<Slot> slots_;
    std::vector<const std::string*> texts_;
};

void NumberEntries(const std::vector<TextValue>& a, const std::vector<TextValue>& b,
                   Symbols& aSymbols, Symbols& bSymbols) {
    TextNumbering numbering(a.size() + b.size());
    aSymbols.reserve(a.size());
    for (const TextValue& entry : a) aSymbols.push_back(numbering.Number(entry.token));
    bSymbols.reserve(b.size());
    for (const TextValue& entry : b) bSymbols.push_back(numbering.Number(entry.token));
}

// A run of equal entries that a shortest edit script keeps: a[x0, x1) equals
// b[y0, y1).
struct Snake {
    Position x0, y0, x1, y1;
};

// The divide-and-conquer form of the greedy shortest-edit-script search:
// the search runs from both corners of the edit graph at once until the
// paths meet in a snake, which splits the problem in two of about half the
// edits each. Memory stays linear; the time is O((n + m) d).
class EditSearch {
public:
    EditSearch(const Symbols& a, const Symbols& b)
        : a_(a), b_(b), removed_(a.size()), inserted_(b.size()) {
        const std::size_t diagonals = a.size() + b.size() + 4;
        forward_.resize(diagonals);
        backward_.resize(diagonals);
        Compare(0, static_cast<Position>(a.size()), 0, static_cast<Position>(b.size()));
    }

    std::vector<ListEdit> Script() const {
        std::vector<ListEdit> script;
        std::size_t i = 0, j = 0;
        while (i < a_.size() || j < b_.size()) {
            if (i < a_.size() && removed_[i]) {
                script.push_back(ListEdit{false, j, i});
                ++i;
            } else if (j < b_.size() && inserted_[j]) {
                script.push_back(ListEdit{true, j, j});
                ++j;
            } else {
                ++i;
                ++j;
            }
        }
        return script;
    }

private:
    // Marks the edits that turn a[aLow, aHigh) into b[bLow, bHigh).
    void Compare(Position aLow, Position aHigh, Position bLow, Position bHigh) {
        while (aLow < aHigh && bLow < bHigh && a_[aLow] == b_[bLow]) ++aLow, ++bLow;
        while (aLow < aHigh && bLow < bHigh && a_[aHigh - 1] == b_[bHigh - 1]) --aHigh, --bHigh;
        if (aLow == aHigh) {
            for (Position j = bLow; j < bHigh; ++j) inserted_[j] = true;
        } else if (bLow == bHigh) {
            for (Position i = aLow; i < aHigh; ++i) removed_[i] = true;
        } else {
            const Snake middle = MiddleSnake(aLow, aHigh, bLow, bHigh);
            Compare(aLow, middle.x0, bLow, middle.y0);
            Compare(middle.x1, aHigh, middle.y1, bHigh);
        }
    }

    // The snake where a shortest path through the edit graph of a[aLow,
    // aHigh) and b[bLow, bHigh) is split in two of at most half its edits.
    // Diagonal k holds the points with x - y = k; the forward search keeps
    // the furthest x reached on each diagonal from the top left corner, the
    // backward search the nearest x reached from the bottom right one.
    Snake MiddleSnake(Position aLow, Position aHigh, Position bLow, Position bHigh) {
        const Position n = aHigh - aLow, m = bHigh - bLow, delta = n - m;
        const bool odd = delta % 2 != 0;
        const Position limit = (n + m + 1) / 2;
        Position* forward = forward_.data() + limit + 1;
        Position* backward = backward_.data() + limit + 1 - delta;
        const auto same = [&](Position x, Position y) { return a_[aLow + x] == b_[bLow + y]; };
        forward[1] = 0;
        backward[delta - 1] = n;
        for (Position d = 0; d <= limit; ++d) {
            for (Position k = -d; k <= d; k += 2) {
                Position x = k == -d || (k != d && forward[k - 1] < forward[k + 1])
                                 ? forward[k + 1]
                                 : forward[k - 1] + 1;
                Position y = x - k;
                const Position x0 = x, y0 = y;
                while (x < n && y < m && same(x, y)) ++x, ++y;
                forward[k] = x;
                if (odd && k >= delta - (d - 1) && k <= delta + (d - 1) && x >= backward[k])
                    return Snake{aLow + x0, bLow + y0, aLow + x, bLow + y};
            }
            for (Position k = delta - d; k <= delta + d; k += 2) {
                Position x =
                    k == delta + d || (k != delta - d && backward[k - 1] < backward[k + 1] - 1)
                        ? backward[k - 1]
                        : backward[k + 1] - 1;
                Position y = x - k;
                const Position x1 = x, y1 = y;
                while (x > 0 && y > 0 && same(x - 1, y - 1)) --x, --y;
                backward[k] = x;
                if (!odd && k >= -d && k <= d && x <= forward[k])
                    return Snake{aLow + x, bLow + y, aLow + x1, bLow + y1};
            }
        }
        // Not reached: the searches meet by d = limit. Were they not to, the
        // removal of the first entry still leaves a smaller problem.
        return Snake{aLow + 1, bLow, aLow + 1, bLow};
    }

    const Symbols& a_;
    const Symbols& b_;
    std::vector<bool> removed_;
    std::vector<bool> inserted_;
    std::vector<Position> forward_;
    std::vector<Position> backward_;
};

void DiffLists(const std::string& pointer, const TextValue& a, const TextValue& b,
               std::vector<Difference>& differences) {
    for (const ListEdit& edit : ShortestEditScript(a.items, b.items)) {
        Difference difference;
        difference.pointer = AppendPointer(pointer, std::to_string(edit.index));
        if (edit.insertion) {
            difference.kind = Difference::Kind::EntryInserted;
            difference.after = b.items[edit.entry];
        } else {
            difference.kind = Difference::Kind::EntryRemoved;
            difference.before = a.items[edit.entry];
        }
        differences.push_back(std::move(difference));
    }
}

void DiffMembers(const SchemaNode& object, const TextValue& a, const TextValue& b,
                 const std::string& pointer, std::vector<Difference>& differences) {
    for (const SchemaNode& member : object.members) {
        const TextMember* before = FindMember(a, member.key);
        const TextMember* after = FindMember(b, member.key);
        const std::string path = AppendPointer(pointer, member.key);
        if (before == nullptr && after == nullptr) continue;
        if (before == nullptr)
            differences.push_back(Difference{Difference::Kind::Added, path, {}, after->value});
        else if (after == nullptr)
            differences.push_back(Difference{Difference::Kind::Removed, path, before->value, {}});
        else if (member.kind == MemberKind::Object)
            DiffMembers(member, before->value, after->value, path, differences);
        else if (member.kind == MemberKind::List)
            DiffLists(path, before->value, after->value, differences);
        else if (!SameValue(before->value, after->value))
            differences.push_back(
                Difference{Difference::Kind::Changed, path, before->value, after->value});
    }
}

std::string FormatDifference(const Difference& difference) {
    const std::string& path = difference.pointer;
    switch (difference.kind) {
        case Difference::Kind::Changed:
            return path + ": " + WriteJsonLine(difference.before) + " -> " +
                   WriteJsonLine(difference.after);
        case Difference::Kind::Added:
            return path + ": added " + WriteJsonLine(difference.after);
        case Difference::Kind::Removed:
            return path + ": removed (was " + WriteJsonLine(difference.before) + ")";
        case Difference::Kind::EntryInserted:
            return path + ": inserted " + WriteJsonLine(difference.after);
        case Difference::Kind::EntryRemoved:
            return path + ": removed " + WriteJsonLine(difference.before);
    }
    return path;
}

std::string FormatOperation(const Difference& difference) {
    const std::string path = QuoteText(difference.pointer);
    switch (difference.kind) {
        case Difference::Kind::Changed:
            return "{ \"op\": \"replace\", \"path\": " + path +
                   ", \"value\": " + WriteJsonLine(difference.after) + " }";
        case Difference::Kind::Added:
        case Difference::Kind::EntryInserted:
            return "{ \"op\": \"add\", \"path\": " + path +
                   ", \"value\": " + WriteJsonLine(difference.after) + " }";
        case Difference::Kind::Removed:
        case Difference::Kind::EntryRemoved:
            break;
    }
    return "{ \"op\": \"remove\", \"path\": " + path + " }";
}

}  // namespace

std::vector<ListEdit> ShortestEditScript(const std::vector<TextValue>& a,
                                         const std::vector<TextValue>& b) {
    Symbols aSymbols, bSymbols;
    NumberEntries(a, b, aSymbols, bSymbols);
    return EditSearch(aSymbols, bSymbols).Script();
}

std::vector<Difference> DiffConfigurationValues(const TextValue& a, const TextValue& b) {
    std::vector<Difference> differences;
    DiffMembers(ConfigurationSchema(), a, b, "", differences);
    return differences;
}

std::string FormatDifferences(const std::vector<Difference>& differences) {
    std::string out;
    for (const Difference& difference : differences) out += FormatDifference(difference) + "\n";
    return out;
}

std::string FormatJsonPatch(const std::vector<Difference>& differences) {
    if (differences.empty()) return "[ ]\n";
    std::string out = "[\n";
    for (std::size_t i = 0; i < differences.size(); ++i)
        out += "  " + FormatOperation(differences[i]) + (i + 1 < differences.size() ? ",\n" : "\n");
    return out + "]\n";
}

}  // namespace zeltcfg
