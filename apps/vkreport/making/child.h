// A child of this process that makes parts of a report.
#pragma once

#include "child/frames.h"
#include "failure.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QStringList>
#include <functional>
#include <memory>
#include <optional>

class ChildProcess;

struct ChildOptions
{
    QString module;
    QString platform; ///< Qt's platform plug-in; empty for the default
    QStringList parts;
    bool hasLowPriority = false;
};

class Child
{
public:
    /// \a showProgress is called several times a second while a text is waited for, \a passOn gets what the child writes to
    /// standard error.
    Child(const ChildOptions &options, std::function<void()> showProgress, std::function<void(const QString &)> passOn);
    /// Ends the child.
    ~Child();
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;

    /// The next frame. Returns nothing if the child ended or \a deadline passed.
    std::optional<Frame> next(QDeadlineTimer deadline);
    /// Passes on what the child writes to standard error; until then it is kept.
    void showErrors();
    /// Why there was no frame, without the time.
    Failure failure() const { return m_failure; }

private:
    FrameReader::Next take(Frame &frame);
    void takeErrors();
    void noteEnd();

    std::unique_ptr<ChildProcess> m_process;
    std::function<void()> m_showProgress;
    std::function<void(const QString &)> m_passOn;
    QDeadlineTimer m_deadline; ///< of the frame that is waited for
    FrameReader m_reader;
    QByteArray m_errors;
    int m_sizeOfErrors = 0; ///< passed on already
    bool m_showsErrors = false;
    Failure m_failure;
};
