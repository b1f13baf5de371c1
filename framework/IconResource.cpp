#include "framework/IconResource.h"

CIconHandle LoadIconOfSize(int id, int width, int height) {
    return CIconHandle(static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id),
                                                     IMAGE_ICON, width, height, LR_DEFAULTCOLOR)));
}

CIconHandle LoadSmallIcon(int id) {
    return LoadIconOfSize(id, GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON));
}

CIconHandle LoadLargeIcon(int id) {
    return LoadIconOfSize(id, GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON));
}
