#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "util/win32/Handle.h"

// Owners of what components return. Link ole32 and oleaut32.

template <class Interface>
struct ComReferencePolicy {
    using Type = Interface*;
    static Interface* None() noexcept { return nullptr; }
    static bool Close(Interface* object) noexcept {
        object->Release();
        return true;
    }
};

// One counted reference, taken over from whoever counted it: a creating function or IID_PPV_ARGS(x.Put()).
template <class Interface>
class CComReference : public CUniqueHandle<ComReferencePolicy<Interface>> {
public:
    using CUniqueHandle<ComReferencePolicy<Interface>>::CUniqueHandle;

    Interface* operator->() const noexcept { return this->Get(); }
};

struct BstrPolicy {
    using Type = BSTR;
    static BSTR None() noexcept { return nullptr; }
    static bool Close(BSTR text) noexcept {
        SysFreeString(text);
        return true;
    }
};

// A text of automation; null is an empty one.
class CBstr : public CUniqueHandle<BstrPolicy> {
public:
    CBstr() noexcept = default;
    explicit CBstr(std::wstring_view text)
        : CUniqueHandle(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        if (!*this) {
            throw std::bad_alloc();
        }
    }

    // Zeros within the text are kept.
    [[nodiscard]] std::wstring Text() const { return TextOf(Get()); }
    // Of a text that somebody else owns.
    [[nodiscard]] static std::wstring TextOf(BSTR text) {
        return text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text));
    }
};

struct SafeArrayPolicy {
    using Type = SAFEARRAY*;
    static SAFEARRAY* None() noexcept { return nullptr; }
    static bool Close(SAFEARRAY* array) noexcept { return SafeArrayDestroy(array) == S_OK; }
};
// An array of automation, with what its elements own.
using CSafeArray = CUniqueHandle<SafeArrayPolicy>;

// A value of automation, empty at first.
class [[nodiscard]] CVariant {
public:
    CVariant() noexcept = default;
    CVariant(CVariant&& other) noexcept : m_value(std::exchange(other.m_value, {})) {}
    CVariant& operator=(CVariant&& other) noexcept {
        std::swap(m_value, other.m_value);
        VariantClear(&other.m_value);
        return *this;
    }
    ~CVariant() { VariantClear(&m_value); }

    [[nodiscard]] VARIANT& Get() noexcept { return m_value; }
    // For a function that stores its value through a pointer; clears what was held.
    [[nodiscard]] VARIANT* Put() noexcept {
        VariantClear(&m_value);
        return &m_value;
    }

private:
    VARIANT m_value{};
};

// What went wrong in a call of automation, filled in by who was called.
class [[nodiscard]] CExceptionInfo {
public:
    CExceptionInfo() noexcept = default;
    CExceptionInfo(const CExceptionInfo&) = delete;
    CExceptionInfo& operator=(const CExceptionInfo&) = delete;
    ~CExceptionInfo() {
        for (const BSTR text : {m_info.bstrSource, m_info.bstrDescription, m_info.bstrHelpFile}) {
            SysFreeString(text);
        }
    }

    // To be filled in once.
    [[nodiscard]] EXCEPINFO* Put() noexcept { return &m_info; }
    // The texts that were put off are asked for now.
    [[nodiscard]] const EXCEPINFO& Get() noexcept {
        if (const auto fillIn = std::exchange(m_info.pfnDeferredFillIn, nullptr); fillIn != nullptr) {
            fillIn(&m_info);
        }
        return m_info;
    }

private:
    EXCEPINFO m_info{};
};
