#pragma once

// After this call libraries are loaded only from the system's folder, never from the current folder or the
// PATH. Call it first in every main function: a library loaded before could come from anywhere.
void HardenProcess() noexcept;
