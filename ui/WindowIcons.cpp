#include "ui/WindowIcons.h"

#include "ui/resource.h"

namespace {

CIconHandle LoadIconOfSize(int id, int width, int height) {
    return CIconHandle(static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id),
                                                     IMAGE_ICON, width, height, LR_DEFAULTCOLOR)));
}

}  // namespace

CIconHandle LoadSmallIcon(int id) {
    return LoadIconOfSize(id, GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON));
}

CIconHandle LoadLargeIcon(int id) {
    return LoadIconOfSize(id, GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON));
}

CImageListHandle LoadSortMarks() {
    const int size = GetSystemMetrics(SM_CXSMICON) / 2;
    CImageListHandle list(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 2, 0));
    for (const int id : {IDI_SORT_ASCENDING, IDI_SORT_DESCENDING}) {
        const CIconHandle icon = LoadIconOfSize(id, size, size);
        if (!list || !icon || ImageList_AddIcon(list.Get(), icon.Get()) < 0) {
            return {};
        }
    }
    return list;
}
