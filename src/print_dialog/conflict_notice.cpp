#include "print_dialog/conflict_notice.h"

#include <QAccessible>
#include <QGridLayout>
#include <QHBoxLayout>
#include <algorithm>

#include "print_dialog/widgets.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

/// More are counted only: the window must keep its room.
constexpr qsizetype kMostLines = 4;

QStringList Shown(const std::vector<std::string>& lines) {
    QStringList shown;
    for (const std::string& line : lines) shown.append(QString::fromStdString(line));
    if (shown.size() <= kMostLines) return shown;
    const auto more = shown.size() - (kMostLines - 1);
    return shown.mid(0, kMostLines - 1) << WindowText("Conflicts more", {QString::number(more)});
}

QLabel* CreateLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

}  // namespace

ConflictNotice::ConflictNotice(PrintJobHost& host,
                               std::function<void(const std::function<void()>&)> whenFree,
                               QWidget* parent)
    : QFrame(parent),
      host_(host),
      icon_(new QLabel(this)),
      heading_(CreateLabel(this)),
      lines_(CreateLabel(this)),
      change_(new QPushButton(WindowText("Conflict change button"), this)),
      undo_(new QPushButton(WindowText("Conflict undo button"), this)),
      anyway_(new QPushButton(WindowText("Conflict print anyway button"), this)) {
    setFrameShape(QFrame::StyledPanel);
    QFont bold = heading_->font();
    bold.setBold(true);
    heading_->setFont(bold);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(kRowGap, 8, kRowGap, 8);
    grid->setHorizontalSpacing(kRowGap);
    grid->setVerticalSpacing(4);
    grid->addWidget(icon_, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(heading_, 0, 1);
    grid->addWidget(lines_, 1, 1);
    grid->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    for (QPushButton* button : {change_, undo_, anyway_}) {
        button->setAutoDefault(false);  // Return stays with Print, which only asks again
        buttons->addWidget(button);
    }
    grid->addLayout(buttons, 0, 2, 2, 1, Qt::AlignBottom);

    connect(change_, &QPushButton::clicked, this, [=, this] { whenFree([this] { change(); }); });
    connect(undo_, &QPushButton::clicked, this, [=, this] { whenFree([this] { undo(); }); });
    connect(anyway_, &QPushButton::clicked, this,
            [this] { Q_EMIT printAnyway(ConflictReport(report_)); });
    clear();
}

void ConflictNotice::clear() {
    report_ = {};
    before_.clear();
    hide();
}

bool ConflictNotice::approve(const ConflictReport& accepted) {
    ConflictReport report = CheckConflicts(host_);
    const auto isAccepted = [&](const auto& conflict) {
        return std::ranges::find(accepted.conflicts, conflict) != accepted.conflicts.end();
    };
    if (std::ranges::all_of(report.conflicts, isAccepted)) return true;
    report_ = std::move(report);
    showReport();
    return false;
}

void ConflictNotice::change() {
    // What the user has changed in the pane since the band appeared counts.
    host_.sync(kSyncToTicket);
    const ConflictReport now = CheckConflicts(host_);
    if (now.conflicts.empty()) {
        clear();
        Q_EMIT solved();
        return;
    }
    if (now != report_) {
        report_ = now;
        return showReport();
    }
    std::vector<PPDSelection> changes;
    for (const NamedSelection& each : now.changes) changes.push_back(each.keywords);
    auto before = host_.writeChoices(changes);
    Q_EMIT ticketsChanged();  // the window then clears the band
    report_ = now;
    before_ = std::move(before);
    showChanged();
    Q_EMIT solved();
}

void ConflictNotice::undo() {
    host_.sync(kSyncToTicket);
    host_.writeChoices(before_);
    Q_EMIT ticketsChanged();  // the window then clears the band
    // What the user has changed in the pane meanwhile may have ended the conflict.
    report_ = CheckConflicts(host_);
    if (!report_.conflicts.empty()) return showReport();
    Q_EMIT solved();
}

void ConflictNotice::showReport() {
    before_.clear();
    QStringList lines = Shown(ConflictLines(report_));
    if (report_.changes.empty()) {
        lines.append(WindowText("Conflict without way out"));
    } else {
        lines.append(WindowText("Conflict suggestion", {Shown(ChangeLines(report_)).join("; ")}));
    }
    show({.icon = QStyle::SP_MessageBoxWarning,
          .heading = WindowText("Conflict heading"),
          .lines = lines,
          .buttons = report_.changes.empty() ? Buttons{anyway_} : Buttons{change_, anyway_}});
}

void ConflictNotice::showChanged() {
    QStringList lines;
    for (const NamedSelection& each : report_.changes) {
        lines.append(WindowText("Conflict choice", {QString::fromStdString(each.option),
                                                    QString::fromStdString(each.choice)}));
    }
    show({.icon = QStyle::SP_MessageBoxInformation,
          .heading = WindowText("Conflict changed"),
          .lines = lines,
          .buttons = {undo_}});
}

void ConflictNotice::show(const Message& message) {
    const int side = style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, this);
    icon_->setPixmap(style()->standardIcon(message.icon).pixmap(side));
    heading_->setText(message.heading);
    lines_->setText(message.lines.join('\n'));
    const QString spoken = message.heading + '\n' + lines_->text();
    setAccessibleName(message.heading);
    setAccessibleDescription(lines_->text());
    for (QPushButton* button : {change_, undo_, anyway_}) {
        button->setVisible(message.buttons.contains(button));
        button->setAccessibleDescription(spoken);
    }
    QFrame::show();
    message.buttons.front()->setFocus(Qt::ShortcutFocusReason);  // the frame is drawn
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace kalmo
