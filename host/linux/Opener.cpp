// SPDX-License-Identifier: MIT
#include "host/linux/Opener.h"

#include <QDir>
#include <QProcess>
#include <QTimer>

#include <memory>
#include <utility>

#include <unistd.h>

namespace {

const QString program = QStringLiteral("xdg-open");

/// Calls a completion only once.
class Once {
public:
    explicit Once(Opener::Completion completion)
        : m_completion(std::make_shared<Opener::Completion>(std::move(completion)))
    {
    }

    void operator()(bool opened) const
    {
        if (const Opener::Completion completion = std::exchange(*m_completion, {})) {
            completion(opened);
        }
    }

private:
    std::shared_ptr<Opener::Completion> m_completion;
};

} // namespace

void Opener::open(const QUrl& url, Completion completion)
{
    const Once done(std::move(completion));
    // Without a parent, which would kill the process on destruction.
    auto* process = new QProcess;
    process->setProgram(program);
    process->setArguments({url.toString(QUrl::FullyEncoded)});
    process->setWorkingDirectory(QDir::homePath());
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { setsid(); }); // so that Ctrl+C in the terminal does not reach the browser

    connect(process, &QProcess::finished, this,
            [done](int status, QProcess::ExitStatus exit) { done(exit == QProcess::NormalExit && status == 0); });
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    connect(process, &QProcess::errorOccurred, this, [process, done](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            process->deleteLater();
            done(false);
        }
    });
    QTimer::singleShot(m_patience, this, [done] { done(true); });
    process->start();
}
