#pragma once

#include <QByteArrayList>
#include <QString>

/// Puts `pieces`, one behind the other, in the place of the file `path` in one step: temporary file
/// beside it, flush to the disk, rename. Mode, owner, group and access list of an existing file are
/// kept as far as the system lets this user; a new one follows the mode mask and its folder. Where
/// `path` is a symbolic link, the file that it finally names is the one that is replaced.
///
/// The temporary file's name begins with the file's and cannot be foreseen; a link or a file that
/// has the name already is neither followed nor touched.
/// @return what went wrong, in which case the old file is whole and untouched; empty when done.
[[nodiscard]] QString ReplaceFile(const QString &path, const QByteArrayList &pieces);

/// Removes the temporary files that ReplaceFile() made for `path` in processes that died over it.
/// To be called while no other process replaces that file.
void RemoveLeftovers(const QString &path);
