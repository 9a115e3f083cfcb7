#include "toolbox/interface_file.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QLabel>
#include <QLayout>
#include <QSet>
#include <QSpinBox>
#include <QStringList>
#include <QStyleOption>
#include <QTabWidget>
#include <QUiLoader>
#include <QXmlStreamReader>
#include <cstdio>

#include "toolbox/angle_dial.h"
#include "toolbox/color_well.h"
#include "toolbox/combo_field.h"
#include "toolbox/control_state.h"
#include "toolbox/date_time_field.h"
#include "toolbox/list_widget.h"
#include "toolbox/menu_button.h"
#include "toolbox/picture_control.h"
#include "toolbox/popup_button.h"
#include "toolbox/qt_strings.h"
#include "toolbox/search_field.h"
#include "toolbox/spin_arrows.h"
#include "toolbox/text_area.h"
#include "toolbox/text_field.h"
#include "toolbox/user_pane.h"
#include "toolbox/widget_texts.h"

namespace toolbox {
namespace {

/// QUiLoader's constructor loads every Designer plug-in on the library paths, and with them code
/// that nobody here asked for; so there are no paths while it runs.
struct WithoutDesignerPlugIns {
    QStringList saved = QCoreApplication::libraryPaths();
    WithoutDesignerPlugIns() { QCoreApplication::setLibraryPaths({}); }
    ~WithoutDesignerPlugIns() { restore(); }
    void restore() { QCoreApplication::setLibraryPaths(saved); }
};

template <typename Widget>
QWidget* Make(QWidget* parent) {
    return new Widget(parent);
}

QWidget* MakeLabel(QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QWidget* MakeSpinBox(QWidget* parent) {
    auto* const spin = new QSpinBox(parent);
    spin->setKeyboardTracking(false);  // one hit per number, not one per digit
    return spin;
}

class Tabs final : public QTabWidget {
public:
    explicit Tabs(QWidget* parent) : QTabWidget(parent) {
        setUsesScrollButtons(false);  // room for all of them
    }

    /// Qt gives the one in front its place when it is shown, and the others none.
    void placePages() const {
        QStyleOptionTabWidgetFrame frame;
        initStyleOption(&frame);
        const QRect place = style()->subElementRect(QStyle::SE_TabWidgetTabContents, &frame, this);
        for (int page = 0; page < count(); ++page) {
            widget(page)->resize(place.size());
            if (QLayout* const layout = widget(page)->layout()) layout->invalidate();
        }
    }
};

template <typename Field>
QWidget* MakeDateTimeField(QWidget* parent) {
    auto* const field = new Field(parent);
    TakeZoneAway(*field);
    return field;
}

/// Classes that are made here; all others are Qt's.
constexpr struct {
    const char* name;
    QWidget* (*make)(QWidget* parent);
} kOwnClasses[] = {
    {"QComboBox", Make<PopupButton>},
    {"UserPane", Make<UserPane>},
    {"PictureControl", Make<PictureControl>},
    {"MenuButton", Make<MenuButton>},
    {"SpinArrows", Make<SpinArrows>},
    {"ColorWell", Make<ColorWell>},
    {"AngleDial", Make<AngleDial>},
    {"QLabel", MakeLabel},
    {"QSpinBox", MakeSpinBox},
    {"QTabWidget", Make<Tabs>},
    {"QLineEdit", Make<TextField>},
    {"SearchField", Make<SearchField>},
    {"TextArea", Make<TextArea>},
    {"ComboField", Make<ComboField>},
    {"ListView", Make<ListView>},
    {"QDateTimeEdit", MakeDateTimeField<QDateTimeEdit>},
    {"QDateEdit", MakeDateTimeField<QDateEdit>},
    {"QTimeEdit", MakeDateTimeField<QTimeEdit>},
};

class Loader final : private WithoutDesignerPlugIns, public QUiLoader {
public:
    Loader() {
        restore();
        setTranslationEnabled(false);
    }

    QWidget* createWidget(const QString& name, QWidget* parent, const QString& object) override {
        QWidget* widget = nullptr;
        for (const auto& own : kOwnClasses) {
            if (name == QLatin1String(own.name)) widget = own.make(parent);
        }
        if (!widget && qtClasses_.contains(name)) {
            return QUiLoader::createWidget(name, parent, object);
        }
        if (widget) {
            widget->setObjectName(object);
        } else {
            unknownClasses.append(name);
        }
        return widget;
    }

    QStringList unknownClasses;

private:
    const QStringList qtClasses_ = availableWidgets();  // made anew at each call
};

/// 0 unless the text has four characters.
OSType FourCharacters(const QString& text) {
    const QByteArray code = text.toLatin1();
    OSType type = 0;
    if (code.size() != 4) return 0;
    for (const char character : code) type = type << 8 | static_cast<UInt8>(character);
    return type;
}

/// Takes the identities over from the file. What is wrong with them, empty when nothing is.
QString Identify(const QList<QWidget*>& widgets) {
    QSet<quint64> known;
    for (QWidget* widget : widgets) {
        ControlState& state = StateOf(*widget);
        state.command = FourCharacters(widget->property("command").toString());
        const QVariant id = widget->property("controlID");
        if (!id.isValid()) continue;
        state.id = {FourCharacters(widget->property("controlSignature").toString()), id.toInt()};
        const QString where = QStringLiteral("%1 (%2)").arg(widget->objectName()).arg(id.toInt());
        if (!state.id.signature) return "no signature of four characters at " + where;
        if (known.contains(KeyOf(state.id))) return "control id used twice at " + where;
        known.insert(KeyOf(state.id));
    }
    return {};
}

/// Gives everything its place from outside to inside, as showing the window would.
void LayOut(QWidget& widget) {
    widget.ensurePolished();
    if (widget.layout()) widget.layout()->activate();
    if (const auto* tabs = dynamic_cast<const Tabs*>(&widget)) tabs->placePages();
    for (QWidget* view : Subviews(widget)) LayOut(*view);
}

void SizeWindow(QWidget& window) {
    if (window.layout()) {
        const QSize designed = window.testAttribute(Qt::WA_Resized) ? window.size() : QSize();
        window.resize(designed.expandedTo(SizeForContents(window)));
    }
    LayOut(window);
}

QWidget* TakeWindow(std::unique_ptr<QWidget>& root, const QString& name) {
    if (root->objectName() == name) return root.release();
    auto* const window = root->findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
    if (window) {
        window->setParent(nullptr, window->windowFlags() | Qt::Window);
        window->setAttribute(Qt::WA_Moved, false);  // its place in the file means nothing
    }
    return window;
}

/// Of itself a layout drops what it remembers, but not what the layouts in it do.
void Forget(QLayout& layout) {
    for (int i = 0; i < layout.count(); ++i)
        if (QLayout* const inner = layout.itemAt(i)->layout()) Forget(*inner);
    layout.invalidate();
}

}  // namespace

QSize SizeForContents(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        widget->ensurePolished();
        widget->updateGeometry();
        if (widget->layout()) Forget(*widget->layout());
    }
    Forget(*window.layout());
    return window.layout()->totalSizeHint();
}

bool InterfaceFile::isWellFormed() const {
    QXmlStreamReader reader(xml);
    const bool isInterface = reader.readNextStartElement() && reader.name() == QLatin1String("ui");
    while (!reader.atEnd()) reader.readNext();
    if (!reader.hasError() && isInterface) return true;
    complain(QStringLiteral("line %1: %2")
                 .arg(reader.lineNumber())
                 .arg(reader.hasError() ? reader.errorString() : "no interface file"));
    return false;
}

std::unique_ptr<QWidget> InterfaceFile::makeWindow(const QString& object) const {
    QByteArray text = xml;
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    Loader loader;
    std::unique_ptr<QWidget> root(loader.load(&buffer));
    if (!loader.unknownClasses.isEmpty()) {
        complain("unknown classes: " + loader.unknownClasses.join(", "));
        return nullptr;
    }
    std::unique_ptr<QWidget> window(root ? TakeWindow(root, object) : nullptr);
    if (!window) {
        complain(root ? "no window " + object : loader.errorString());
        return nullptr;
    }
    const QList<QWidget*> widgets =
        QList<QWidget*>{window.get()} + window->findChildren<QWidget*>();
    if (const QString fault = Identify(widgets); !fault.isEmpty()) {
        complain(fault);
        return nullptr;
    }
    for (QWidget* widget : widgets) ApplyTexts(*widget, bundle);
    SizeWindow(*window);
    return window;
}

void InterfaceFile::complain(const QString& fault) const {
    std::fprintf(stderr, "Interface file %s: %s\n", qUtf8Printable(name), qUtf8Printable(fault));
}

}  // namespace toolbox
