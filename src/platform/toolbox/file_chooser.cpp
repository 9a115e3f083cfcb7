#include "toolbox/file_chooser.h"

#include <QFileDialog>
#include <QStandardPaths>

#include "foundation/bundle.h"
#include "system/presence.h"
#include "toolbox/control_state.h"
#include "toolbox/qt_dialogs.h"
#include "toolbox/qt_strings.h"

using namespace toolbox;

namespace {

/// Some desktops tell "*.png" from "*.PNG": "*.[pP][nN][gG]" is the same to all.
QString InAnyCase(const QString& patterns) {
    QString any;
    for (const QChar letter : patterns) {
        const QChar small = letter.toLower(), capital = letter.toUpper();
        any += small == capital ? QString(letter) : QStringLiteral("[%1%2]").arg(small, capital);
    }
    return any;
}

/// Empty where Qt does not speak the user's language.
QString AllFiles() {
    constexpr char kEnglish[] = "All Files (*)";
    const QString text = QFileDialog::tr(kEnglish);
    const bool isEnglishMeant = PreferredLanguages().front().starts_with("en");
    return text != QLatin1String(kEnglish) || isEnglishMeant ? text : QString();
}

QStringList Filters(const FileChooserSetup& setup) {
    QStringList filters;
    if (setup.patterns) {
        filters += ToQString(setup.kind) + " (" + InAnyCase(ToQString(setup.patterns)) + ')';
    }
    const QString all = AllFiles();
    if (!all.isEmpty()) filters += all;
    return filters;
}

QString PicturesFolder() {
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

void BeginAt(QFileDialog& dialog, const QString& path) {
    const QFileInfo file(path);
    const bool isThere = !path.isEmpty() && file.dir().exists();
    dialog.setDirectory(isThere ? file.absolutePath() : PicturesFolder());
    if (isThere && file.isFile()) dialog.selectFile(file.absoluteFilePath());
}

}  // namespace

CFURLRef ChooseFile(WindowRef owner, const FileChooserSetup& setup) {
    if (!CurrentPresence().modalLoopsRun) return nullptr;
    DialogOver<QFileDialog> dialog(ToWidget(owner));
    dialog->setWindowTitle(ToQString(setup.title));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setSupportedSchemes({QStringLiteral("file")});
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setNameFilters(Filters(setup));
    BeginAt(*dialog, ToQString(setup.startPath));
    if (!dialog.run() || dialog->selectedFiles().isEmpty()) return nullptr;
    const auto path = Owned<CFStringRef>::Adopt(CreateString(dialog->selectedFiles().constFirst()));
    return CFURLCreateWithFileSystemPath(kCFAllocatorDefault, path, false);
}
