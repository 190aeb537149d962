#include "host/toolkit/HelpWindow.h"

#include "host/support/DataFolders.h"
#include "host/support/HostTexts.h"
#include "interfaces/ClientSite.h"
#include "widgets/support/Guarded.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QImage>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <QtMath>

namespace ko {

namespace {

QString pageOf(std::int32_t topic)
{
    switch (topic) {
    case helpTopic::page: return QStringLiteral("page.html");
    case helpTopic::readOnlyPage: return QStringLiteral("read-only.html");
    case helpTopic::selectChannel: return QStringLiteral("select-channel.html");
    case helpTopic::setDateTime: return QStringLiteral("date-time.html");
    case helpTopic::advancedTrig: return QStringLiteral("trigger-lines.html");
    case propertiesTopic: return QStringLiteral("properties.html");
    default: return QStringLiteral("index.html");
    }
}

/// Shows only files of its folder, and scales down pictures that are wider than the page.
class HelpBrowser : public QTextBrowser {
public:
    HelpBrowser(const QString& folder, QWidget* parent)
        : QTextBrowser(parent), folder_(QFileInfo(folder).canonicalFilePath())
    {
        setOpenLinks(true);
        setOpenExternalLinks(false);
    }

    QVariant loadResource(int type, const QUrl& name) override
    {
        if (!isInFolder(name))
            return {};
        const QVariant resource = QTextBrowser::loadResource(type, name);
        if (type != QTextDocument::ImageResource)
            return resource;
        const QImage picture = QImage::fromData(resource.toByteArray());
        const int bar = verticalScrollBar()->isVisible() ? 0 : verticalScrollBar()->sizeHint().width();
        const int room = viewport()->width() - bar - 2 * qCeil(document()->documentMargin());
        if (picture.width() <= room || room <= 0)
            return resource;
        return picture.scaledToWidth(room, Qt::SmoothTransformation);
    }

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override
    {
        if (isInFolder(name))
            QTextBrowser::doSetSource(name, type);
    }

private:
    /// Returns whether the URL, resolved against the present page, is a file in the folder.
    [[nodiscard]] bool isInFolder(const QUrl& name) const
    {
        const QUrl url = source().resolved(name);
        const QFileInfo file(url.toLocalFile());
        return url.isLocalFile() && url.host().isEmpty() && file.isFile() &&
               QFileInfo(file.canonicalFilePath()).path() == folder_;
    }

    QString folder_; ///< canonical; empty if it does not exist
};

} // namespace

HelpWindow::HelpWindow(const Texts& texts, const QString& folder, QWidget* parent)
    : QDialog(parent), folder_(folder), missingText_(texts(hostText::helpMissing)),
      browser_(new HelpBrowser(folder, this))
{
    setObjectName(QStringLiteral("help"));
    setWindowTitle(withoutMnemonic(texts(hostText::helpMenu)));
    browser_->setAccessibleName(windowTitle());
    browser_->document()->setDocumentMargin(fontMetrics().height());
    auto* buttons = new QDialogButtonBox(this);
    auto& contents = *buttons->addButton(texts(hostText::contents), QDialogButtonBox::ActionRole);
    auto& back = *buttons->addButton(texts(hostText::back), QDialogButtonBox::ActionRole);
    auto& forward = *buttons->addButton(texts(hostText::forward), QDialogButtonBox::ActionRole);
    auto& close = *buttons->addButton(texts(hostText::closeHelp), QDialogButtonBox::RejectRole);
    close.setDefault(true);
    connectButtons(contents, back, forward);
    onSignal(&close, &QPushButton::clicked, this, [this] { reject(); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(browser_);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 40);
    // The first page is loaded before the window is shown and needs the final width.
    layout->activate();
    browser_->setFocus();
}

void HelpWindow::connectButtons(QPushButton& contents, QPushButton& back, QPushButton& forward)
{
    onSignal(&contents, &QPushButton::clicked, this, [this] { turnTo(contentsTopic); });
    onSignal(&back, &QPushButton::clicked, browser_, [this] { browser_->backward(); });
    onSignal(&forward, &QPushButton::clicked, browser_, [this] { browser_->forward(); });
    onSignal(browser_, &QTextBrowser::backwardAvailable, &back, [&back](bool on) { back.setEnabled(on); });
    onSignal(browser_, &QTextBrowser::forwardAvailable, &forward, [&forward](bool on) { forward.setEnabled(on); });
    onSignal(browser_, &QTextBrowser::sourceChanged, this, [this] { setWindowTitle(browser_->documentTitle()); });
}

void HelpWindow::turnTo(std::int32_t topic)
{
    showPage(pageOf(topic));
}

void HelpWindow::showPage(const QString& name)
{
    const QString file = folder_ + QLatin1Char('/') + name;
    if (QFileInfo::exists(file))
        browser_->setSource(QUrl::fromLocalFile(file));
    else
        browser_->setPlainText(missingText_.arg(file));
}

namespace {

QString helpFolder(const Texts& texts)
{
    for (const QString& language : {texts(hostText::languageCode), QStringLiteral("en")})
        if (const auto contents = findDataFile(fromQt(QStringLiteral("help/%1/index.html").arg(language))))
            return toQt(contents->parent_path().string());
    return QStringLiteral("help");
}

} // namespace

void showHelp(const Texts& texts, QWidget& frame, std::int32_t topic)
{
    auto* window = dynamic_cast<HelpWindow*>(frame.findChild<QDialog*>(QStringLiteral("help")));
    if (!window)
        window = new HelpWindow(texts, helpFolder(texts), &frame);
    // Only a child window of the modal dialog stays usable beside it.
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* owner = modal ? modal : &frame;
    if (window->parentWidget() != owner)
        window->setParent(owner, window->windowFlags());
    window->turnTo(topic);
    window->show();
    window->raise();
    window->activateWindow();
}

} // namespace ko
