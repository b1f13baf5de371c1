#include "script/win32/ScriptValues.h"

#include <cstddef>
#include <span>

namespace {

// Access to the elements of an array of VARIANTs. The array is locked meanwhile.
class CArrayElements {
public:
    explicit CArrayElements(SAFEARRAY* array) : m_array(array) {
        void* data = nullptr;
        if (SafeArrayAccessData(array, &data) != S_OK) {
            throw std::bad_alloc();
        }
        std::size_t count = 1;
        for (UINT dimension = 1; dimension <= SafeArrayGetDim(array); ++dimension) {
            LONG first = 0;
            LONG last = -1;
            SafeArrayGetLBound(array, dimension, &first);
            SafeArrayGetUBound(array, dimension, &last);
            count *= static_cast<std::size_t>(last - first + 1);
        }
        m_elements = {static_cast<VARIANT*>(data), count};
    }
    CArrayElements(const CArrayElements&) = delete;
    CArrayElements& operator=(const CArrayElements&) = delete;
    ~CArrayElements() { SafeArrayUnaccessData(m_array); }

    [[nodiscard]] auto begin() const noexcept { return m_elements.begin(); }
    [[nodiscard]] auto end() const noexcept { return m_elements.end(); }

private:
    SAFEARRAY* m_array;
    std::span<VARIANT> m_elements;
};

HRESULT AppendText(VARIANT& value, CStringArray& texts) {
    CVariant text;
    const HRESULT result = VariantChangeType(text.Put(), &value, 0, VT_BSTR);
    if (SUCCEEDED(result)) {
        texts.Add(CBstr::TextOf(text.Get().bstrVal));
    }
    return result;
}

}  // namespace

CSafeArray ArrayOfTexts(const CStringArray& texts) {
    CSafeArray array(SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(texts.GetSize())));
    if (!array) {
        throw std::bad_alloc();
    }
    const CArrayElements elements(array.Get());
    auto text = texts.begin();
    for (VARIANT& element : elements) {
        element.bstrVal = CBstr(*text++).Release();
        element.vt = VT_BSTR;
    }
    return array;
}

HRESULT AppendTexts(VARIANT& value, CStringArray& texts) {
    if (value.vt != (VT_ARRAY | VT_VARIANT)) {
        return AppendText(value, texts);
    }
    HRESULT result = S_OK;
    for (VARIANT& element : CArrayElements(value.parray)) {
        result = AppendText(element, texts);
    }
    return result;
}
