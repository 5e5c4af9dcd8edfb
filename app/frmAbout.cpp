#include "app/frmAbout.h"

#include "platform/CShell.h"
#include "platform/FileSystem.h"
#include "platform/MsgBox.h"
#include "platform/TextCodec.h"
#include "platform/Version.h"

#include <QEvent>
#include <QFont>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {
QLabel *LinkLabel(const QString &text, const QString &name, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setCursor(Qt::PointingHandCursor);
    QFont font = label->font();
    font.setUnderline(true);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, QColor(0, 0, 192));
    label->setPalette(palette);
    return label;
}
} // namespace

frmAbout::frmAbout(const QString &creditsPath, QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About ") + platform::AppTitle());

    m_picture = new QLabel(this);
    m_picture->setObjectName(QStringLiteral("imgLogo"));
    setWindowIcon(AppIcon());
    m_picture->setPixmap(AppIcon().pixmap(64));
    m_picture->setFixedSize(64, 64);

    m_title = new QLabel(platform::AppTitle(), this);
    m_title->setObjectName(QStringLiteral("lbltitle"));
    QFont titleFont = m_title->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.5);
    m_title->setFont(titleFont);

    m_version = new QLabel(platform::VersionText(), this);
    m_version->setObjectName(QStringLiteral("lblVersion"));

    m_disclaimer =
        new QLabel(tr("This program is offered as it is, without any warranty. The texts it "
                      "shows were typed and checked by people; where a word matters, compare it "
                      "with a printed edition."),
                   this);
    m_disclaimer->setObjectName(QStringLiteral("lblDisclaimer"));
    m_disclaimer->setWordWrap(true);

    m_mail = LinkLabel(SupportMail(), QStringLiteral("Label3"), this);
    m_web = LinkLabel(WebSite(), QStringLiteral("Label4"), this);
    m_mail->installEventFilter(this);
    m_web->installEventFilter(this);

    m_credits = new QTextEdit(this);
    m_credits->setObjectName(QStringLiteral("txtCredits"));
    m_credits->setReadOnly(true);
    m_credits->setMinimumHeight(140);
    loadCredits(creditsPath);

    m_ok = new QPushButton(tr("OK"), this);
    m_ok->setObjectName(QStringLiteral("cmdOK"));
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this, &frmAbout::cmdOK_Click);

    auto *heading = new QVBoxLayout;
    heading->addWidget(m_title);
    heading->addWidget(m_version);
    heading->addStretch();
    auto *top = new QHBoxLayout;
    top->addWidget(m_picture, 0, Qt::AlignTop);
    top->addLayout(heading, 1);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_disclaimer);
    layout->addWidget(m_mail);
    layout->addWidget(m_web);
    layout->addWidget(m_credits, 1);
    layout->addLayout(buttons);
    resize(460, 420);
}

void frmAbout::loadCredits(const QString &path)
{
    const std::optional<QByteArray> bytes =
        path.isEmpty() ? std::nullopt : platform::ReadFileBytes(platform::ResolvePath(path));
    if (!bytes) {
        m_credits->setPlainText(
            QStringLiteral("The credits file (CREDITS.md) could not be found."));
        return;
    }
    m_credits->setMarkdown(platform::DecodeText(*bytes).text);
}

bool frmAbout::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
        if (watched == m_mail) {
            Label3_Click();
            return true;
        }
        if (watched == m_web) {
            Label4_Click();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmAbout::Label3_Click()
{
    CShell shell;
    shell.setFilename(QStringLiteral("mailto:") + m_mail->text());
    shell.Execute();
}

void frmAbout::Label4_Click()
{
    CShell shell;
    shell.setFilename(m_web->text());
    shell.Execute();
}

void frmAbout::cmdOK_Click()
{
    accept();
}

QIcon frmAbout::AppIcon()
{
    // Up to the largest size a window switcher shows: a picture of 256 pixels cost as much to
    // draw at every start as all the others together, and launchers use the installed SVG.
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(DrawLogo(size));
    return icon;
}

QPixmap frmAbout::DrawLogo(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 64.0, size / 64.0);

    // An open book: two pages meeting at the spine, on a dark cover.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(96, 48, 24));
    p.drawRoundedRect(QRectF(4, 30, 56, 28), 3, 3);
    p.setPen(QPen(QColor(120, 100, 80), 1));
    p.setBrush(QColor(250, 246, 232));
    QPainterPath left;
    left.moveTo(32, 34);
    left.cubicTo(24, 29, 14, 29, 7, 32);
    left.lineTo(7, 54);
    left.cubicTo(14, 51, 24, 51, 32, 56);
    left.closeSubpath();
    p.drawPath(left);
    QPainterPath right;
    right.moveTo(32, 34);
    right.cubicTo(40, 29, 50, 29, 57, 32);
    right.lineTo(57, 54);
    right.cubicTo(50, 51, 40, 51, 32, 56);
    right.closeSubpath();
    p.drawPath(right);
    p.setPen(QPen(QColor(160, 150, 135), 1));
    for (int i = 0; i < 4; ++i) {
        const double y = 38 + i * 4;
        p.drawLine(QPointF(11, y), QPointF(28, y + 1));
        p.drawLine(QPointF(36, y + 1), QPointF(53, y));
    }

    // A quill standing in the right page.
    QPainterPath feather;
    feather.moveTo(44, 44);
    feather.cubicTo(46, 30, 52, 14, 60, 4);
    feather.cubicTo(58, 16, 54, 30, 44, 44);
    p.setPen(QPen(QColor(60, 60, 90), 1));
    p.setBrush(QColor(200, 210, 235));
    p.drawPath(feather);
    p.setPen(QPen(QColor(40, 40, 60), 1.5));
    p.drawLine(QPointF(44, 44), QPointF(57, 10));
    return pixmap;
}
