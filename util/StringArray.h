#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// An ordered, growable array of wide strings with the accessors that a Windows C++ developer expects. An
// index outside the array throws std::invalid_argument.
class CStringArray {
public:
    [[nodiscard]] std::ptrdiff_t GetSize() const noexcept {
        return static_cast<std::ptrdiff_t>(m_items.size());
    }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_items.empty(); }
    [[nodiscard]] const std::wstring& GetAt(std::ptrdiff_t index) const {
        if (index < 0 || index >= GetSize()) {
            throw std::invalid_argument("index outside the string array");
        }
        return m_items[static_cast<std::size_t>(index)];
    }
    [[nodiscard]] const std::wstring& operator[](std::ptrdiff_t index) const { return GetAt(index); }

    // Returns the index of the new element.
    std::ptrdiff_t Add(std::wstring text) {
        m_items.push_back(std::move(text));
        return GetSize() - 1;
    }
    void RemoveAll() noexcept { m_items.clear(); }

    [[nodiscard]] auto begin() const noexcept { return m_items.begin(); }
    [[nodiscard]] auto end() const noexcept { return m_items.end(); }

private:
    std::vector<std::wstring> m_items;
};
