#pragma once

#include <array>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "core/FileSystem.h"
#include "core/Shell.h"

// Lets calls through to other files, or not: now and then one fails, and for a spell all calls of one kind
// do. Removing a file always works, and nobody waits.
class CUnreliableFiles final : public IFileSystem {
public:
    enum Call { kRead, kLock, kCreate, kWrite, kFlush, kClose, kReplace, kCalls, kNone };

    CUnreliableFiles(IFileSystem& files, std::mt19937& random) : m_files(files), m_random(random) {}

    Call failing = kNone;  // for a spell
    bool isReliable = false;
    std::array<int, kCalls> calls{}, failures{};

    [[nodiscard]] bool IsReadOnly(const std::wstring& path) override { return m_files.IsReadOnly(path); }
    [[nodiscard]] Status Read(const std::wstring& path, std::string& bytes) override {
        return Fails(kRead) ? Refusal() : m_files.Read(path, bytes);
    }
    [[nodiscard]] Status CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) override {
        return Fails(kLock) ? Refusal() : m_files.CreateLock(path, file);
    }
    [[nodiscard]] Status Create(const std::wstring& path, std::unique_ptr<IFile>& file) override {
        if (Fails(kCreate)) {
            return Refusal();
        }
        std::unique_ptr<IFile> inner;
        const Status status = m_files.Create(path, inner);
        file = std::make_unique<CFile>(*this, std::move(inner));
        return status;
    }
    [[nodiscard]] Status Replace(const std::wstring& from, const std::wstring& to) override {
        return Fails(kReplace) ? Refusal() : m_files.Replace(from, to);
    }
    void Remove(const std::wstring& path) override { m_files.Remove(path); }
    void Pause(unsigned) override {}

    [[nodiscard]] int FailureCount() const {
        int count = 0;
        for (const int failed : failures) {
            count += failed;
        }
        return count;
    }

private:
    class CFile final : public IFile {
    public:
        CFile(CUnreliableFiles& files, std::unique_ptr<IFile> file)
            : m_owner(files), m_file(std::move(file)) {}
        [[nodiscard]] bool Write(std::string_view bytes) override {
            const bool fails = m_owner.Fails(kWrite);
            return m_file->Write(bytes.substr(0, fails ? bytes.size() / 2 : bytes.size())) && !fails;
        }
        [[nodiscard]] bool Flush() override { return !m_owner.Fails(kFlush) && m_file->Flush(); }
        [[nodiscard]] bool Close() override { return m_file->Close() && !m_owner.Fails(kClose); }

    private:
        CUnreliableFiles& m_owner;
        std::unique_ptr<IFile> m_file;
    };

    bool Fails(Call call) {
        ++calls[call];
        const bool fails = !isReliable && (call == failing || m_random() % 100 == 0);
        failures[call] += fails ? 1 : 0;
        return fails;
    }
    Status Refusal() { return m_random() % 2 == 0 ? Status::Busy : Status::Failed; }

    IFileSystem& m_files;
    std::mt19937& m_random;
};

// Starts nothing and records what it was asked to launch. One launch in eight fails, at one step or another.
class CUnreliableShell final : public IShell {
public:
    struct Launch {
        std::wstring project;
        std::wstring result;  // what the task is to record
        int wanted;           // starts of the program that are right
        int starts;
    };

    explicit CUnreliableShell(std::mt19937& random) : m_random(random) {}

    std::vector<Launch> launches;  // of this pass

    [[nodiscard]] bool FileExists(const std::wstring& path) override {
        static const std::wstring kResults[] = {L"Failure: File does not exist",
                                                L"Failure: File is already opened", L"Failure to run ''",
                                                L"Failure to run 'C:\\program.exe'", L"Success"};
        m_outcome = m_random() % 32;
        launches.push_back({path, kResults[m_outcome < 4 ? m_outcome : 4], m_outcome >= 3, 0});
        return m_outcome != 0;
    }
    [[nodiscard]] bool CanOpenForWriting(const std::wstring&) override { return m_outcome != 1; }
    [[nodiscard]] std::wstring RegisteredProgram(const std::wstring&) override {
        return m_outcome == 2 ? L"" : L"C:\\program.exe";
    }
    [[nodiscard]] std::wstring AssociatedProgram(const std::wstring&) override { return {}; }
    [[nodiscard]] std::intptr_t Open(const std::wstring&, const std::wstring& parameters) override {
        // A start of another project than the one that was asked about is none of this launch.
        launches.back().starts += parameters.find(launches.back().project) != std::wstring::npos ? 1 : 100;
        return m_outcome == 3 ? 2 : 33;
    }

private:
    std::mt19937& m_random;
    unsigned m_outcome = 0;
};
