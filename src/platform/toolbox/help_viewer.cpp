#include "toolbox/help_viewer.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace toolbox {
namespace {

constexpr const char* kFirstPages[] = {"index.htm", "index.html"};
constexpr int kMostFoldersUp = 8;
constexpr QSize kWindowSize(720, 560);

/// Empty when the folder holds no first page.
QString FirstPageIn(const QDir& folder) {
    for (const char* name : kFirstPages) {
        if (folder.exists(name)) return folder.absoluteFilePath(name);
    }
    return {};
}

}  // namespace

HelpPages::HelpPages(const QString& name, QWidget* parent) : QTextBrowser(parent) {
    setOpenLinks(false);
    setAccessibleName(name);
}

void HelpPages::openBookOf(const QString& page) {
    QDir folder = QFileInfo(page).absoluteDir();
    folder_ = folder.canonicalPath();
    firstPage_ = QUrl();
    for (int up = 0; up < kMostFoldersUp; ++up) {
        if (const QString first = FirstPageIn(folder); !first.isEmpty()) {
            folder_ = folder.canonicalPath();
            firstPage_ = QUrl::fromLocalFile(first);
            return;
        }
        if (!folder.cdUp()) return;
    }
}

QUrl HelpPages::insideBook(const QUrl& link) const {
    const QUrl target = source().resolved(link);
    const QString file = QFileInfo(target.toLocalFile()).canonicalFilePath();
    return target.isLocalFile() && file.startsWith(folder_ + '/') ? target : QUrl();
}

QVariant HelpPages::loadResource(int type, const QUrl& name) {
    return insideBook(name).isEmpty() ? QVariant() : QTextBrowser::loadResource(type, name);
}

HelpViewer::HelpViewer(const HelpViewerTexts& texts, QWidget* parent)
    : QDialog(parent, Qt::Window), pages_(new HelpPages(texts.page, this)) {
    setWindowTitle(texts.title);
    setAttribute(Qt::WA_DeleteOnClose);
    const QRect available = QApplication::primaryScreen()->availableGeometry();
    resize(kWindowSize.boundedTo(available.size()));

    QPushButton* const back = addButton(texts.back, QKeySequence::Back);
    QPushButton* const forward = addButton(texts.forward, QKeySequence::Forward);
    contents_ = addButton(texts.contents, {});
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(pages_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(pages_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    connect(back, &QAbstractButton::clicked, pages_, &QTextBrowser::backward);
    connect(forward, &QAbstractButton::clicked, pages_, &QTextBrowser::forward);
    connect(contents_, &QAbstractButton::clicked, this, [this] { openPage(pages_->firstPage()); });
    connect(pages_, &QTextBrowser::anchorClicked, this, &HelpViewer::openPage);

    auto* const row = new QHBoxLayout;
    for (QPushButton* button : {back, forward, contents_}) row->addWidget(button);
    row->addStretch();
    auto* const column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(pages_);
    pages_->setFocus();
}

QPushButton* HelpViewer::addButton(const QString& name, const QKeySequence& key) {
    auto* const button = new QPushButton(name, this);
    button->setAutoDefault(false);  // Return belongs to the page's links
    if (!key.isEmpty()) button->setShortcut(key);
    return button;
}

void HelpViewer::openPage(const QUrl& link) {
    const QUrl target = pages_->insideBook(link);
    if (!target.isEmpty()) pages_->setSource(target);
}

bool HelpViewer::Show(const HelpViewerTexts& texts, const QString& page, const QString& anchor) {
    static QPointer<HelpViewer> viewer;
    if (!QFileInfo(page).isFile()) return false;
    // A window that is modal lets only its own children be used beside it.
    QWidget* const modal = QApplication::activeModalWidget();
    if (viewer && viewer->parentWidget() != modal && modal != viewer) {
        delete viewer;
    }
    if (!viewer) viewer = new HelpViewer(texts, modal);
    viewer->pages_->openBookOf(page);
    viewer->contents_->setEnabled(viewer->pages_->firstPage().isValid());
    QUrl target = QUrl::fromLocalFile(QFileInfo(page).absoluteFilePath());
    target.setFragment(anchor);
    viewer->openPage(target);
    viewer->show();
    viewer->raise();
    viewer->activateWindow();
    return true;
}

}  // namespace toolbox
