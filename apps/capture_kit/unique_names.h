// Names of which no two may be equal.
#pragma once

#include "registry_tree.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

class UniqueNames
{
public:
    /// \a name, or \a name with a number if there was an equal one. Upper and lower case are equal.
    QString unique(const QString &name)
    {
        const QString upper = machine::upperCased(name);
        QString result = name;
        for (int &number = m_next[upper]; m_known.contains(machine::upperCased(result));)
            result = name + QStringLiteral("-%1").arg(++number + 1);
        m_known.insert(machine::upperCased(result));
        return result;
    }

private:
    QHash<QString, int> m_next; ///< of an upper-cased name
    QSet<QString> m_known;
};
