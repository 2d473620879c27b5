#pragma once

#include <moxcore/filesupport/Dir.h>
#include <moxcore/filesupport/File.h>
#include <moxcore/string/String.h>

#include <optional>
#include <vector>

// Where the presets of a user are kept: a directory for each family below one base, a file for each preset.
namespace moxappsupport::presets {

// The base directory of all families, which may not be there yet. By default `moxmediaui/Presets` in the
// user's data directory: $XDG_DATA_HOME, or .local/share at home. The environment variable MOX_PRESETS_DIR,
// an absolute path, says otherwise, and SetLocalPresetsBaseDir overrules both.
moxcore::filesupport::Dir GetLocalPresetsBaseDir();

// For portable installations and tests; nothing gives the default back. May be called on any thread, and
// counts for stores that are made later.
void SetLocalPresetsBaseDir(std::optional<moxcore::filesupport::Dir> dir);

// Fills `files` with the regular files of a directory whose names end in `extension`, dot included and with
// its case, in order of the bytes of their names. Neither links nor what lies in directories below count.
// False if the directory can't be listed; `files` is empty then.
bool CollectFiles(moxcore::filesupport::Dir const& dir, moxcore::Utf16String const& extension,
                  std::vector<moxcore::filesupport::File>& files);

// A file in `dir` that isn't there, to keep what a user calls `name` in: the name as far as it is safe on
// every file system, then a number if needed, then `extension`. It differs from all names in the directory by
// more than case and Unicode normalisation and has at most 255 bytes. The file isn't made. Throws a
// mox_exception if the directory can't be listed, std::invalid_argument if the extension leaves no room.
moxcore::filesupport::File GetFileWithUniqueName(moxcore::filesupport::Dir const& dir,
                                                 moxcore::Utf16String const& name,
                                                 moxcore::Utf16String const& extension);

}  // namespace moxappsupport::presets
