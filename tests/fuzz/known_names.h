// What the report asks Windows for, by number, so that few bytes can name it. Numbers
// are in the committed inputs: rows are added at the end only.
#pragma once

#include "registry_tree.h"

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <vector>

struct KnownKey
{
    machine::RegistryRoot root;
    QString path;
    std::vector<int> values; // numbers of the values that are read from it or from what is below it
};

/// Keys that the report opens, or what it opens below them; at most 256.
const std::vector<KnownKey> &knownKeys();
/// Values that it reads; at most 256.
const QStringList &knownValues();
/// Texts that mean something to the report, to QString::arg() or to a code page; at most 256.
const QStringList &knownTexts();
/// The calls that can be made to fail; at most 256.
const std::vector<const char *> &knownCalls();

extern const int codePages[5];
extern const int specialFolderNumbers[5];
extern const char *const environmentNames[5];
extern const char *const libraryNames[2];
