#pragma once

// Whether all blocks are whole; and a program that gives back a damaged one ends at once. How much is seen
// depends on the heap: Wine's lays patterns behind and into blocks when WINEDEBUG has warn+heap.
[[nodiscard]] bool IsHeapWhole();
