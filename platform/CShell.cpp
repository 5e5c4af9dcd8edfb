#include "platform/CShell.h"

#include "platform/FileSystem.h"
#include "platform/TestHook.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {
using Hook = platform::TestHook<CShell, CShell::TestOpener>;
} // namespace

CShell::TestOpener CShell::setTestOpener(TestOpener opener)
{
    return Hook::set(std::move(opener));
}

QUrl CShell::Url() const
{
    const QString target = m_filename.trimmed();
    if (target.isEmpty())
        return QUrl();
    // A scheme has at least two letters, so "C:\..." stays a file.
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+:"));
    if (scheme.match(target).hasMatch() && !QFileInfo::exists(target))
        return QUrl(target);
    if (target.startsWith(QStringLiteral("www."), Qt::CaseInsensitive))
        return QUrl(QStringLiteral("http://") + target);

    QString path = target;
    path.replace(u'\\', u'/');
    if (QFileInfo(path).isRelative() && !m_workingDirectory.isEmpty())
        path = QDir(QString(m_workingDirectory).replace(u'\\', u'/')).filePath(path);
    return QUrl::fromLocalFile(QFileInfo(platform::ResolvePath(path)).absoluteFilePath());
}

bool CShell::Execute() const
{
    const QUrl url = Url();
    if (const TestOpener &opener = Hook::get())
        return opener(*this, url);
    if (!url.isValid() || url.isEmpty())
        return false;
    return QDesktopServices::openUrl(url);
}
