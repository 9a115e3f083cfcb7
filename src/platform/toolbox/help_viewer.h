// The window that shows pages of a help book: one at a time, reused.
#pragma once

#include <QDialog>
#include <QString>
#include <QTextBrowser>
#include <QUrl>

#include "toolbox/host.h"

class QPushButton;

namespace toolbox {

/// Shows the pages of one folder and nothing else: no other files, no network.
class HelpPages final : public QTextBrowser {
    Q_OBJECT

public:
    HelpPages(const QString& name, QWidget* parent);

    /// The book that the page belongs to: the nearest folder above it that has a first page.
    void openBookOf(const QString& page);
    /// Invalid when the book has no first page.
    [[nodiscard]] QUrl firstPage() const { return firstPage_; }
    /// Where the link leads, seen from the shown page; empty unless it stays in the book.
    [[nodiscard]] QUrl insideBook(const QUrl& link) const;

    QVariant loadResource(int type, const QUrl& name) override;

private:
    QString folder_;
    QUrl firstPage_;
};

class HelpViewer final : public QDialog {
    Q_OBJECT

public:
    /// Shows the page, at `anchor` unless that is empty. False when there is no such file.
    static bool Show(const HelpViewerTexts& texts, const QString& page, const QString& anchor);

private:
    HelpViewer(const HelpViewerTexts& texts, QWidget* parent);
    void openPage(const QUrl& page);
    QPushButton* addButton(const QString& name, const QKeySequence& key);

    HelpPages* pages_;
    QPushButton* contents_;
};

}  // namespace toolbox
