// The files that were opened last.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

class RecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int most = 10;

    explicit RecentFiles(QObject *parent = nullptr);

    /// The last one first.
    QStringList paths() const;
    void add(const QString &path);

public Q_SLOTS:
    void clear();

Q_SIGNALS:
    void changed();

private:
    void set(const QStringList &paths);
};
