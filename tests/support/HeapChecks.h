#pragma once

// Returns whether all heap blocks are intact. A program that frees a damaged block ends at once. The heap
// decides how much is seen: Wine's writes patterns behind and into blocks when WINEDEBUG has warn+heap.
[[nodiscard]] bool IsHeapWhole();
