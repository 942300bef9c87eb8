// Numbers of the keys, values, texts and calls of the report, so that an input names them in a
// byte. Keys and values come from the section table.
#pragma once

#include "registry_tree.h"

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <vector>

struct KnownKey
{
    machine::RegistryRoot root;
    QString path;
    std::vector<int> values; // numbers of the values that the report reads from it; never empty
};

/// Keys that the report opens; a sub-key that it enumerates is named "0". At most 256.
const std::vector<KnownKey> &knownKeys();
/// Values that the report reads; at most 256.
const QStringList &knownValues();
/// Texts with a meaning for the report, for QString::arg() or in a code page; at most 256.
const QStringList &knownTexts();
/// The calls that can fail; at most 256.
const std::vector<const char *> &knownCalls();

extern const int codePages[5];
extern const int specialFolderNumbers[5];
extern const char *const libraryNames[2];
