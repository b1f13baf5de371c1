#include "core/list/AcceptedList.h"

#include <utility>

CAcceptedList::CAcceptedList(IFileSystem& files, std::wstring path)
    : m_files(files), m_path(std::move(path)) {}

FileResult CAcceptedList::Save(CSCVShchedulerTaskArray& tasks) {
    m_retry.OnSuccess();
    m_list.emplace().CopyFrom(tasks);
    return TrySave(tasks);
}

FileResult CAcceptedList::OnTick(CSCVShchedulerTaskArray& tasks) {
    if (!m_list) {
        return {};
    }
    return m_retry.IsTryDue() ? TrySave(tasks) : FileResult{FileResult::Status::Busy, 0, m_path};
}

FileResult CAcceptedList::TrySave(CSCVShchedulerTaskArray& tasks) {
    FileResult saved = m_list->TrySave(m_files, m_path);
    if (saved) {
        tasks.AdoptPlaces(*m_list);
        m_list.reset();
    } else {
        m_retry.OnFailure();
    }
    return saved;
}
