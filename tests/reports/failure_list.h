// Collects what a test finds wrong in many reports, and shows the first ones and how many there are of each
// kind.
#pragma once

#include <QtCore/QMap>
#include <QtCore/QStringList>
#include <vector>

struct Failure
{
    QString report; ///< "0001"
    int line = 0;   ///< from 1; 0 if it is in no line
    QString kind;   ///< what counts as the same kind
    QString what;   ///< for people
};

class FailureList
{
public:
    void add(const QString &report, int line, const QString &kind, const QString &what);
    bool isEmpty() const { return m_failures.empty(); }
    std::size_t size() const { return m_failures.size(); }
    /// Prints the first one of each kind, 30 at most, and for each kind the number of failures and of reports. \a of is the
    /// number of reports that the kind occurs in, if it is known. With PLANTED_OUTPUT, writes
    /// all of them to the file NAME.tsv in that folder.
    void show(const char *name, const QMap<QString, int> &of = {}) const;

private:
    std::vector<const Failure *> inOrder() const;
    void write(const QString &fileName) const;

    std::vector<Failure> m_failures;
};
