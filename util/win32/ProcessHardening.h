#pragma once

// From here on libraries are looked for in the system's folder only, never in the current one or along the
// path. The first call of every main function: a library loaded earlier may come from anywhere.
void HardenProcess() noexcept;
