#pragma once

#include <string>

#include "core/task/SCVShchedulerTaskArray.h"

// Saves the list that the saving child process saves in its turn and its test expects to find whole: even
// generations are longer than odd ones, and every task of one bears its number.
inline bool SaveGeneration(unsigned generation, IFileSystem& files, const std::wstring& path) {
    CSCVShchedulerTaskArray tasks;
    for (int i = 0; i < (generation % 2 == 0 ? 100 : 60); ++i) {
        tasks.AddTask(L"C:\\projects\\" + std::to_wstring(i) + L".scvpr", 1711850400);
        tasks[i]->m_strLastRunResult = std::to_wstring(generation);
    }
    return bool{tasks.TrySave(files, path)};
}
