#include "ui/model/RowOrder.h"

#include <algorithm>
#include <utility>

#include "core/task/SCVShchedulerTask.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "ui/model/CellText.h"
#include "util/CaseFold.h"
#include "util/Path.h"

namespace {

std::wstring Folded(std::wstring text) {
    std::transform(text.begin(), text.end(), text.begin(), ToUpper);
    return text;
}

}  // namespace

CRowOrder::CRowOrder(const CSCVShchedulerTaskArray& tasks, int column, bool ascending, std::int64_t now)
    : m_bAscending(ascending) {
    m_keys.reserve(static_cast<std::size_t>(tasks.GetSize()));
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        const CSCVShchedulerTask& task = *tasks[i];
        stKey& key = m_keys[&task];
        switch (column) {
            case kFileNameColumn:
                key.text = Folded(StripFileExtension(task.m_strProjectPath));
                break;
            case kLastRunTimeColumn:
                m_kind = Kind::Time;
                key.time = task.m_tLastRunTime;
                break;
            case kLastRunResultColumn:
                key.text = Folded(task.m_strLastRunResult);
                break;
            case kNextRunTimeColumn:
                m_kind = Kind::Time;
                key.time = ShownNextRunTime(task, now);
                break;
            case kFilePathColumn:
                key.text = Folded(task.m_strProjectPath);
                break;
            default:
                m_kind = Kind::None;
        }
    }
}

int CRowOrder::CompareAscending(const stKey& left, const stKey& right) const noexcept {
    switch (m_kind) {
        case Kind::Text:
            return left.text.compare(right.text);
        case Kind::Time:
            return left.time <= right.time ? -1 : 1;
        case Kind::None:
            break;
    }
    return 1;
}

int CRowOrder::Compare(const CSCVShchedulerTask* left, const CSCVShchedulerTask* right) const noexcept {
    const auto a = m_keys.find(left);
    const auto b = m_keys.find(right);
    if (a == m_keys.end() || b == m_keys.end()) {
        return 0;
    }
    const int order = CompareAscending(a->second, b->second);
    return m_bAscending ? order : -order;
}
