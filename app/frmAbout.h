#pragma once

#include <QDialog>
#include <QString>

class QIcon;
class QLabel;
class QPixmap;
class QPushButton;
class QTextEdit;

// The About box: the program's title and version, a disclaimer, the support mail and web
// addresses (clicking either opens it) and the credits read from CREDITS.md.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    static QString SupportMail() { return QStringLiteral("support@quillstone.example.org"); }
    static QString WebSite() { return QStringLiteral("https://quillstone.example.org/"); }

    // creditsPath names the credits file, normally CREDITS.md in the program folder.
    explicit frmAbout(const QString &creditsPath, QWidget *parent = nullptr);

    // The picture beside the title: a book with a quill, drawn rather than loaded.
    static QPixmap DrawLogo(int size);
    // The same picture as the program's icon, for its windows (the installed SVG icon is the same
    // drawing), and the name of the desktop entry that the desktop groups the windows under.
    static QIcon AppIcon();
    static QString DesktopFileName() { return QStringLiteral("org.quillstone.quillstone"); }

public slots:
    void Label3_Click();
    void Label4_Click();
    void cmdOK_Click();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void loadCredits(const QString &path);

    QLabel *m_picture = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_version = nullptr;
    QLabel *m_disclaimer = nullptr;
    QLabel *m_mail = nullptr;
    QLabel *m_web = nullptr;
    QTextEdit *m_credits = nullptr;
    QPushButton *m_ok = nullptr;
};
