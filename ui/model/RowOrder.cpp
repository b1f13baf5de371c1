#include "ui/model/RowOrder.h"

#include "core/task/SCVShchedulerTask.h"
#include "core/task/SCVShchedulerTaskArray.h"

namespace {

int CompareAscending(const SortKey& left, const SortKey& right) noexcept {
    if (const auto* text = std::get_if<std::wstring>(&left)) {
        return text->compare(*std::get_if<std::wstring>(&right));
    }
    return left <= right ? -1 : 1;
}

}  // namespace

CRowOrder::CRowOrder(const CSCVShchedulerTaskArray& tasks, int column, bool ascending, std::int64_t now)
    : m_bHasColumn(FindProjectColumn(column) != nullptr), m_bAscending(ascending) {
    const stProjectColumn* sorted = FindProjectColumn(column);
    m_keys.reserve(static_cast<std::size_t>(tasks.GetSize()));
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        m_keys[tasks[i]] = sorted != nullptr ? sorted->sortKey(*tasks[i], now) : SortKey();
    }
}

int CRowOrder::Compare(const CSCVShchedulerTask* left, const CSCVShchedulerTask* right) const noexcept {
    const auto a = m_keys.find(left);
    const auto b = m_keys.find(right);
    if (a == m_keys.end() || b == m_keys.end()) {
        return 0;
    }
    const int order = m_bHasColumn ? CompareAscending(a->second, b->second) : 1;
    return m_bAscending ? order : -order;
}
