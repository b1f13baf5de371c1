#include "util/Handle.h"

#include <gtest/gtest.h>

namespace {

CKernelHandle NewEvent() {
    return CKernelHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
}

bool IsOpen(HANDLE handle) {
    DWORD flags = 0;
    return GetHandleInformation(handle, &flags) != 0;
}

TEST(Handle, IsClosedOnceByItsLastOwner) {
    HANDLE first = nullptr;
    HANDLE second = nullptr;
    {
        CKernelHandle owner = NewEvent();
        first = owner.Get();
        CKernelHandle moved(std::move(owner));
        EXPECT_EQ(moved.Get(), first);
        CKernelHandle other = NewEvent();
        second = other.Get();
        moved = std::move(other);
        EXPECT_FALSE(IsOpen(first)) << "what was held is closed at once";
        EXPECT_TRUE(IsOpen(second));
    }
    EXPECT_FALSE(IsOpen(second));

    CKernelHandle event = NewEvent();
    const HANDLE held = event.Get();
    *event.Put() = nullptr;
    EXPECT_FALSE(IsOpen(held)) << "a handle that is written over is closed first";
    EXPECT_FALSE(event);
    EXPECT_TRUE(event.Close());
    EXPECT_FALSE(CFileHandle(INVALID_HANDLE_VALUE));
}

}  // namespace
