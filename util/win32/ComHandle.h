#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "util/win32/Handle.h"

// Owners of COM references and of automation values. Link ole32 and oleaut32.

template <class Interface>
struct ComReferencePolicy {
    using Type = Interface*;
    static Interface* None() noexcept { return nullptr; }
    static bool Close(Interface* object) noexcept {
        object->Release();
        return true;
    }
};

// Owns one counted reference, which a creating function or IID_PPV_ARGS(x.Put()) has counted.
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

// An automation text (BSTR); null is the empty text.
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
    // The contents of a text that somebody else owns.
    [[nodiscard]] static std::wstring TextOf(BSTR text) {
        return text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text));
    }
};

struct SafeArrayPolicy {
    using Type = SAFEARRAY*;
    static SAFEARRAY* None() noexcept { return nullptr; }
    static bool Close(SAFEARRAY* array) noexcept { return SafeArrayDestroy(array) == S_OK; }
};
// An automation array, which owns its elements.
using CSafeArray = CUniqueHandle<SafeArrayPolicy>;

// An automation value, empty at first.
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

// The error of an automation call, filled in by the called object.
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
    // Fetches texts whose filling in the object has deferred.
    [[nodiscard]] const EXCEPINFO& Get() noexcept {
        if (const auto fillIn = std::exchange(m_info.pfnDeferredFillIn, nullptr); fillIn != nullptr) {
            fillIn(&m_info);
        }
        return m_info;
    }

private:
    EXCEPINFO m_info{};
};
