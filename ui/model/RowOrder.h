#pragma once

#include <cstdint>
#include <unordered_map>

#include "ui/model/ProjectColumns.h"

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// How two rows of the project list compare, for one sort: what is compared is worked out once for each task
// and not once for each comparison. To be used only as long as the tasks do not change.
//
// Not a strict weak order, on purpose: times never compare as equal. It is made for the list view's own sort,
// which tolerates that, and must not be given to std::sort.
class CRowOrder {
public:
    // A `column` that there is not, -1 for instance, gives no meaningful order.
    CRowOrder(const CSCVShchedulerTaskArray& tasks, int column, bool ascending, std::int64_t now);

    // Negative when `left` comes first, positive when `right` does. 0 when either is null or not in the
    // array; null stands for a row without a task.
    [[nodiscard]] int Compare(const CSCVShchedulerTask* left, const CSCVShchedulerTask* right) const noexcept;

private:
    bool m_bHasColumn;
    bool m_bAscending;
    std::unordered_map<const CSCVShchedulerTask*, SortKey> m_keys;
};
