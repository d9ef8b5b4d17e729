#pragma once

#include "store/write_error.h"

#include <QByteArrayList>
#include <QString>

/// Replaces the file `path` with `pieces`, concatenated, in one step: temporary file beside it,
/// flush to the disk, rename. Mode, owner, group and access list of an existing file are kept as
/// far as the system lets this user; a new file follows the umask and its folder. If `path` is a
/// symbolic link, the file that it finally names is replaced.
///
/// A file that this user may not write is not replaced, nor is anything that is no plain file.
///
/// The temporary file's name begins with the file's and is unpredictable; an existing link or file
/// of that name is neither followed nor touched.
/// @return what went wrong, with the old file complete and untouched.
[[nodiscard]] WriteError ReplaceFile(const QString &path, const QByteArrayList &pieces);

/// Removes the temporary files that ReplaceFile() made for `path` in processes that died over it.
/// Call it while no other process replaces that file.
void RemoveLeftovers(const QString &path);
