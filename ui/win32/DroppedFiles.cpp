#include "ui/win32/DroppedFiles.h"

#include <memory>

#include "ui/model/AddProjects.h"

std::vector<std::wstring> TakeDroppedProjects(HDROP drop) {
    struct Release {
        void operator()(HDROP taken) const noexcept { DragFinish(taken); }
    };
    const std::unique_ptr<HDROP__, Release> release(drop);
    std::vector<std::wstring> projects;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        wchar_t path[MAX_PATH] = {};
        DragQueryFileW(drop, i, path, MAX_PATH);
        if (AcceptsDrop(path)) {
            projects.emplace_back(path);
        }
    }
    return projects;
}
