#pragma once

class IClock;
class IFileSystem;
class IShell;

// Everything that core asks of the machine, handed in by whoever runs it. Owns nothing.
struct CPlatform {
    const IClock& clock;
    IFileSystem& files;
    IShell& shell;
};
