// Says on standard error what is being done: on a terminal one line that is rewritten, for a program that asked for it a
// line each time. Nothing is written otherwise.
#pragma once

#include "message_writer.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QString>

class Progress
{
public:
    /// \a timeLimit in seconds, 0 for none.
    Progress(double timeLimit, bool isForPrograms, MessageWriter &writer);
    /// Erases the line on the terminal.
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    /// What is done from now on, such as the name of a section.
    void setWork(const QString &work);
    /// Says it again, if it is time for that. To be called several times a second.
    void show();
    /// Erases the line on the terminal, because something else is about to be written.
    void erase();

private:
    enum class Form {
        None,
        Terminal,
        Lines,
    };

    void rewriteLine();
    void writeLine();

    double m_timeLimit;
    MessageWriter &m_writer;
    Form m_form;
    QElapsedTimer m_time;
    QString m_work;
    int m_width = 0;          ///< of the line that is visible on the terminal
    qint64 m_timeOfLine = -1; ///< milliseconds, of the last line for a program
};
