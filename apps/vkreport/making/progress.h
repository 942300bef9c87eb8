// One line on a terminal that says what is being done. Nothing is written if standard error is no terminal.
#pragma once

#include "message_writer.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

class Progress
{
public:
    /// \a timeLimit in seconds, 0 for none.
    Progress(double timeLimit, MessageWriter &writer);
    /// Erases the line.
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    /// What is done from now on, such as the name of a section.
    void setWork(const QString &work) { m_work = work; }
    /// Updates the line.
    void show();
    /// Erases the line, because something else is about to be written.
    void erase();

private:
    double m_timeLimit;
    MessageWriter &m_writer;
    bool m_isTerminal;
    QElapsedTimer m_time;
    QString m_work;
    int m_width = 0; ///< of the line that is visible
};
