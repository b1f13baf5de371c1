#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/SCVShchedulerTaskArray.h"

// The lists that the saving child process saves in turn and its test expects to find whole: even generations
// are longer than odd ones, and every task of one bears its number.
inline std::unique_ptr<CSCVShchedulerTaskArray> GenerationList(unsigned generation) {
    auto tasks = std::make_unique<CSCVShchedulerTaskArray>();
    const std::wstring name = std::to_wstring(generation);
    const int count = generation % 2 == 0 ? 100 : 60;
    for (int i = 0; i < count; ++i) {
        tasks->AddTask(L"C:\\projects\\" + std::to_wstring(i) + L".scvpr", 1711850400);
        tasks->GetAt(i)->m_strLastRunResult = name;
    }
    return tasks;
}
