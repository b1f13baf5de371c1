#pragma once

class IClock;
class IFileSystem;
class IShell;

// The system calls that core makes, passed in by its caller. Owns none of these objects.
struct CPlatform {
    const IClock& clock;
    IFileSystem& files;
    IShell& shell;
};
