// Which names in the registry belong to the format, and which facts show its values.
#pragma once

#include "registry_tree.h"

#include <QtCore/QSet>
#include <map>
#include <memory>

/// A fact that shows a text, and how it was read.
struct ShownFact
{
    int row = -1;        ///< index in factRows()
    bool isAnsi = false; ///< read by A calls
};

/// What the sections of the report read in one key and in those below it.
class ReadKey
{
public:
    struct Read
    {
        QString section; ///< FactRow::section
        QSet<QString> values;
        bool allValues = false;
    };

    std::map<QString, ReadKey> below; ///< by upper-cased name
    std::unique_ptr<ReadKey> any;     ///< what is read below every sub-key
    QSet<QString> sections;           ///< that read below \c any or in it
    std::vector<Read> reads;
};

/// What is known of a key of a described machine.
class KnownKey
{
public:
    KnownKey() = default;
    explicit KnownKey(const ReadKey &root) : m_keys {&root} { }

    KnownKey subKey(const QString &name) const;
    /// Whether the report opens the sub-key by this name, which therefore stays.
    bool isFixed(const QString &subKeyName) const;
    ShownFact factOfSubKeys() const;

    /// The same for values.
    bool isFixedValue(const QString &valueName) const;
    ShownFact factOfValueNames() const;
    ShownFact factOfValue(const QString &valueName) const;

private:
    std::vector<const ReadKey *> m_keys;
    bool m_isBelowDevice = false;
};

/// What all sections read below a root.
const ReadKey &readsBelow(machine::RegistryRoot root);

/// A fact that says nothing about its text.
int neutralRow();
