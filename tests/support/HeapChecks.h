#pragma once

#include <gtest/gtest.h>

// A test after which a block of the heap is damaged has failed, and a program that gives back a damaged block
// ends at once: linking this replaces the operators of delete. How much is seen depends on the heap; under
// Wine it lays patterns behind and into blocks when WINEDEBUG has warn+heap.
class HeapChecks final : public testing::EmptyTestEventListener {
public:
    void OnTestEnd(const testing::TestInfo& test) override;
};
