#pragma once

#include <moxcore/filesupport/Dir.h>
#include <moxcore/string/String.h>

#include <chrono>
#include <cstdint>
#include <string_view>
#include <vector>

// Every call of the operating system that files need. Those that fail throw a mox_exception with the path and
// the system's reason. Interrupted calls are repeated.
namespace moxcore::filesupport::posix {

enum class Target { kNothing, kFile, kDirectory, kOther };
// Follows links. What can't be looked at counts as nothing.
Target TargetOf(Utf8String const& path) noexcept;

// Gives whether the file was made here.
bool MakeFile(Utf8String const& path, bool truncate);
// Gives whether a file was there.
bool RemoveFile(Utf8String const& path);
// Gives whether the directory was made here; one that is there already is no error.
bool MakeDirectory(Utf8String const& path, unsigned mode);
void RemoveDirectory(Utf8String const& path);
std::vector<DirEntry> ListDirectory(Utf8String const& path);

// Opens regular files only, for reading, and tells their length.
int Open(Utf8String const& path, std::uint64_t& length);
void Close(int descriptor) noexcept;
void Read(int descriptor, void* buffer, std::uint64_t size, Utf8String const& path);
void Write(Utf8String const& path, std::string_view text);

// Makes the content of `temporary` durable and renames it to `target`, whose permissions it takes over.
void Replace(Utf8String const& target, Utf8String const& temporary);
// Makes durable which names are in a directory.
void SyncDirectory(Utf8String const& path);

// How long ago a file was written to last, links not followed; 0 for what can't be looked at, or lies ahead.
std::int64_t SecondsSinceWritten(Utf8String const& path) noexcept;

// A descriptor that holds a directory's lock; negative if others have held it all the while, or if there are
// no locks here. Closing the descriptor gives the lock back, as does the end of the process.
int LockDirectory(Utf8String const& path, std::chrono::milliseconds patience) noexcept;

Utf8String HomeDirectory();

}  // namespace moxcore::filesupport::posix
