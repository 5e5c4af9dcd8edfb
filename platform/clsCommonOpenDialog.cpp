#include "platform/clsCommonOpenDialog.h"
#include "platform/TestHook.h"

#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

namespace {
using Hook = platform::TestHook<clsCommonOpenDialog, clsCommonOpenDialog::TestAnswer>;
} // namespace

clsCommonOpenDialog::TestAnswer clsCommonOpenDialog::setTestAnswer(TestAnswer answer)
{
    return Hook::set(std::move(answer));
}

QStringList clsCommonOpenDialog::NameFilters(const QString &filter)
{
    QStringList out;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString display = parts.at(i).trimmed();
        QStringList patterns;
        for (const QString &pattern : parts.at(i + 1).split(u';', Qt::SkipEmptyParts)) {
            const QString p = pattern.trimmed();
            // "*.*" means every file, also those without a dot in their name.
            if (!p.isEmpty())
                patterns.append(p == u"*.*" ? QStringLiteral("*") : p);
        }
        if (patterns.isEmpty())
            continue;
        // The toolkit reads the patterns from the parentheses at the end of the display text.
        if (display.endsWith(u')')) {
            const qsizetype open = display.lastIndexOf(u'(');
            if (open >= 0)
                display = display.left(open).trimmed();
        }
        if (display.isEmpty())
            display = patterns.join(u' ');
        out.append(display + QStringLiteral(" (") + patterns.join(u' ') + u')');
    }
    return out;
}

bool clsCommonOpenDialog::ShowOpen(QWidget *owner)
{
    return show(owner, false);
}

bool clsCommonOpenDialog::ShowSave(QWidget *owner)
{
    return show(owner, true);
}

bool clsCommonOpenDialog::show(QWidget *owner, bool save)
{
    if (const TestAnswer &answer = Hook::get()) {
        clsCommonOpenDialog copy = *this;
        if (!answer(copy, save))
            return false;
        *this = copy;
        return true;
    }

    QFileDialog dialog(owner, m_dialogTitle, m_initDir);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    if (save)
        dialog.setFileMode(QFileDialog::AnyFile);
    else if (AllowMultiSelect())
        dialog.setFileMode(QFileDialog::ExistingFiles);
    else if (FileMustExist())
        dialog.setFileMode(QFileDialog::ExistingFile);
    else
        dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !OverWritePrompt());
    dialog.setOption(QFileDialog::DontResolveSymlinks, NoDeferenceLinks());

    const QStringList filters = NameFilters(m_filter);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        dialog.selectNameFilter(filters.value(std::max(m_filterIndex, 1) - 1, filters.first()));
    }
    const QString initial = m_filename.trimmed();
    if (!initial.isEmpty())
        dialog.selectFile(initial);

    if (dialog.exec() != QDialog::Accepted)
        return false;
    const QStringList files = dialog.selectedFiles();
    if (files.isEmpty())
        return false;
    m_filename = files.first();
    m_filetitle = QFileInfo(m_filename).fileName();
    if (const qsizetype chosen = filters.indexOf(dialog.selectedNameFilter()); chosen >= 0)
        m_filterIndex = int(chosen) + 1;
    return true;
}
