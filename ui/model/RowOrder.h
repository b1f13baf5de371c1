#pragma once

#include <cstdint>
#include <unordered_map>

#include "ui/model/ProjectColumns.h"

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// Compares two rows of the project list. The constructor computes each task's sort key once, so use an object
// for one sort only, and only until the tasks change.
//
// This is not a strict weak order, on purpose: two times never compare as equal. The list view's sort
// tolerates that; std::sort does not.
class CRowOrder {
public:
    // For a `column` that does not exist, such as -1, the order is arbitrary.
    CRowOrder(const CSCVShchedulerTaskArray& tasks, int column, bool ascending, std::int64_t now);

    // Negative when `left` comes first, positive when `right` does. 0 when either is null or not in the
    // array; null stands for a row without a task.
    [[nodiscard]] int Compare(const CSCVShchedulerTask* left, const CSCVShchedulerTask* right) const noexcept;

private:
    bool m_bHasColumn;
    bool m_bAscending;
    std::unordered_map<const CSCVShchedulerTask*, SortKey> m_keys;
};
