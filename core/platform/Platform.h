#pragma once

class IClock;
class IFileSystem;
class IShell;

// The interfaces through which core makes system calls. The caller provides them. Owns none of these objects.
struct CPlatform {
    const IClock& clock;
    IFileSystem& files;
    IShell& shell;
};
