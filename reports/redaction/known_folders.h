// Folders that do not depend on the user.
#pragma once

#include <string>
#include <string_view>

namespace velkor {
namespace Reports {

// The names are symbols, see folding.h.

/// "users": what follows it in a path is the name of a user.
bool isUsersFolder(const std::u16string &name);
/// "program files".
bool isProgramsFolder(const std::u16string &name);
/// "public", "default": a folder beside those of users that belongs to nobody.
bool isSharedProfile(const std::u16string &name);
/// "appdata", "documents", "microsoft", "python311": says nothing about the user.
bool isKnownFolder(const std::u16string &name);
/// "c$", "netlogon": a share that Windows makes.
bool isKnownShare(const std::u16string &name);
/// "tool.exe": a file of a program, whose name matters for a diagnosis.
bool isProgramFile(const std::u16string &name);

/// "settings.ini": the name of a file and not of a folder.
bool isFile(const std::u16string &name);

} // namespace Reports
} // namespace velkor
