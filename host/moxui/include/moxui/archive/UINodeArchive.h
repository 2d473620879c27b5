#pragma once

#include <moxcore/string/String.h>
#include <moxui/archive/Value.h>

#include <cstddef>
#include <string_view>

namespace moxui::archive {

/// What a document may have at most; beyond it reading throws.
inline constexpr std::size_t kMaximalArchiveBytes = std::size_t{16} << 20;
inline constexpr std::size_t kMaximalArchiveElements = 500'000;
inline constexpr int kMaximalArchiveDepth = 1024;  ///< of elements in one another; a view takes eight
inline constexpr int kMaximalArchiveAttributes = 4;

/// Reads a UINodeArchive document, version 4: gives its outermost object, whose keys are `UINodeArchive` (1)
/// and `root` (the root's node object). The bytes are XML, UTF-8 unless they say otherwise; a document type
/// is refused, and with it every entity of the document's own. Throws a mox_exception that names the line for
/// anything that isn't such a document.
Value ReadArchive(std::string_view bytes);

/// Writes the document that reads as `archive`, which has what reading requires. Throws a mox_exception for
/// what no document can hold: texts that aren't UTF-8 or have control characters, numbers that aren't finite.
moxcore::Utf8String WriteArchive(Value const& archive);

/// Throws a mox_exception: what is wrong with an archive, and on which line. `problem` is a literal
/// ($$$/path/key=Default), in which @0 is the line and @1 `subject`.
[[noreturn]] void ThrowArchiveError(moxcore::Utf8String const& problem, int line,
                                    std::string_view subject = {});

}  // namespace moxui::archive
