#include "ui/model/EditorMembers.h"

stEditorMembers EditorMembersOf(const CSCVShchedulerTask* task, std::int64_t now) {
    if (task == nullptr) {
        const CSCVShchedulerTask fresh(now);
        return EditorMembersOf(&fresh, now);
    }
    stEditorMembers members;
    for (const stFlagControl& control : kFlagControls) {
        members.*control.member = task->*control.field;
    }
    for (const stTextControl& control : kTextControls) {
        members.*control.member = task->*control.field;
    }
    members.m_bExportIntoNewFile = task->m_strExportFile.empty() ? 0 : 1;
    members.m_tStartDate = task->m_tStartTime;
    members.m_tStartTime = task->m_tStartTime;
    members.m_nEveryValue = task->m_nEveryValue;
    members.m_nEveryUnit = task->m_nEveryUnit;
    members.m_tUntilTime = task->m_tUntilTime;
    return members;
}
