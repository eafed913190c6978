// part_file.h - a file that is written beside its place under a name of its own, then renamed.
//
// At no time is there half a file under the wanted name, and an older file stays as it is when
// something fails.
#ifndef EXAMPLES_PART_FILE_H
#define EXAMPLES_PART_FILE_H

#include <cstdio>
#include <filesystem>
#include <string>

class PartFile
{
public:
    // Throws Failure when the path names something other than a plain file, or none can be created
    // in its directory.
    explicit PartFile(const std::string& path);
    ~PartFile(); // removes what was not committed
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    std::FILE* stream() const { return stream_; }

    // Gives the file its name, replacing an older one; throws Failure if that cannot be done.
    void commit();

    // Throws Failure in the system's words if it has any since the file was opened, else in these.
    [[noreturn]] void fail(const std::string& reason) const;

private:
    std::string path_; // as the user wrote it
    std::filesystem::path target_, part_;
    std::FILE* stream_ = nullptr;
};

#endif
