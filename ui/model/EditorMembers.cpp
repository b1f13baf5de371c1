#include "ui/model/EditorMembers.h"

stEditorMembers EditorMembersOf(const CSCVShchedulerTask* task, std::int64_t now) {
    if (task == nullptr) {
        const CSCVShchedulerTask fresh(now);
        return EditorMembersOf(&fresh, now);
    }
    stEditorMembers members;
    static_cast<TaskFields&>(members) = static_cast<const TaskFields&>(*task);
    members.m_bExportIntoNewFile = task->m_strExportFile.empty() ? 0 : 1;
    return members;
}
