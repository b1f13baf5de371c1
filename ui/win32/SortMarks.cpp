#include "ui/win32/SortMarks.h"

#include "framework/IconResource.h"
#include "ui/resource.h"

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
