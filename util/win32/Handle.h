#pragma once

#include <windows.h>

#include <utility>

// Owns one handle of the system and closes it. The policy knows the handle's type, the value that means
// "none" (which differs from one creating function to the next) and how to close it.
template <class Policy>
class [[nodiscard]] CUniqueHandle {
public:
    using Type = typename Policy::Type;

    CUniqueHandle() noexcept = default;
    // Takes over the result of a creating function, including None for a failure.
    explicit CUniqueHandle(Type handle) noexcept : m_handle(handle) {}
    CUniqueHandle(CUniqueHandle&& other) noexcept : m_handle(std::exchange(other.m_handle, Policy::None())) {}
    CUniqueHandle& operator=(CUniqueHandle&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        other.Close();
        return *this;
    }
    ~CUniqueHandle() { Close(); }

    explicit operator bool() const noexcept { return m_handle != Policy::None(); }
    [[nodiscard]] Type Get() const noexcept { return m_handle; }
    // For a function that stores a handle through a pointer. Closes the held handle first.
    [[nodiscard]] Type* Put() noexcept {
        Close();
        return &m_handle;
    }
    // Gives the handle to the caller, who closes it.
    [[nodiscard]] Type Release() noexcept { return std::exchange(m_handle, Policy::None()); }
    // False when the system could not close the handle.
    bool Close() noexcept {
        const Type handle = std::exchange(m_handle, Policy::None());
        return handle == Policy::None() || Policy::Close(handle);
    }

private:
    Type m_handle = Policy::None();
};

struct FileHandlePolicy {
    using Type = HANDLE;
    static HANDLE None() noexcept { return INVALID_HANDLE_VALUE; }
    static bool Close(HANDLE handle) noexcept { return CloseHandle(handle) != 0; }
};
// What CreateFileW returns.
using CFileHandle = CUniqueHandle<FileHandlePolicy>;

struct KernelHandlePolicy {
    using Type = HANDLE;
    static HANDLE None() noexcept { return nullptr; }
    static bool Close(HANDLE handle) noexcept { return CloseHandle(handle) != 0; }
};
// A process, thread, event or mutex.
using CKernelHandle = CUniqueHandle<KernelHandlePolicy>;

struct FindHandlePolicy {
    using Type = HANDLE;
    static HANDLE None() noexcept { return INVALID_HANDLE_VALUE; }
    static bool Close(HANDLE handle) noexcept { return FindClose(handle) != 0; }
};
// What FindFirstFileW returns.
using CFindHandle = CUniqueHandle<FindHandlePolicy>;

struct RegistryKeyPolicy {
    using Type = HKEY;
    static HKEY None() noexcept { return nullptr; }
    static bool Close(HKEY key) noexcept { return RegCloseKey(key) == ERROR_SUCCESS; }
};
using CRegistryKey = CUniqueHandle<RegistryKeyPolicy>;
