#include "ui/look/appearance.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QProxyStyle>

namespace ledra {

namespace {

struct PaletteColor
{
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr std::array colors = {
    PaletteColor{QPalette::Window, 0xfff4f4f6, 0xff1f2023},
    PaletteColor{QPalette::WindowText, 0xff1d1d20, 0xffececef},
    PaletteColor{QPalette::Base, 0xffffffff, 0xff28292d},
    PaletteColor{QPalette::AlternateBase, 0xfff8f8fa, 0xff2d2e33},
    PaletteColor{QPalette::Text, 0xff1d1d20, 0xffececef},
    PaletteColor{QPalette::PlaceholderText, 0xff6a6a70, 0xffa6a6ae},
    PaletteColor{QPalette::Button, 0xfff4f4f6, 0xff36373c},
    PaletteColor{QPalette::ButtonText, 0xff1d1d20, 0xffececef},
    PaletteColor{QPalette::ToolTipBase, 0xff2b2b2f, 0xff45464c},
    PaletteColor{QPalette::ToolTipText, 0xfff4f4f6, 0xfff4f4f6},
    PaletteColor{QPalette::Highlight, 0xff2159c9, 0xff2c62c8},
    PaletteColor{QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    PaletteColor{QPalette::Link, 0xff1d56c4, 0xff8db4ff},
    PaletteColor{QPalette::LinkVisited, 0xff1d56c4, 0xff8db4ff},
    PaletteColor{QPalette::BrightText, 0xffffffff, 0xffffffff},
    // The shades from which borders are drawn.
    PaletteColor{QPalette::Light, 0xffffffff, 0xff46474d},
    PaletteColor{QPalette::Midlight, 0xffe9e9ed, 0xff3c3d42},
    PaletteColor{QPalette::Mid, 0xffd0d0d6, 0xff4a4b51},
    PaletteColor{QPalette::Dark, 0xffb2b2ba, 0xff18191b},
    PaletteColor{QPalette::Shadow, 0xff8a8a92, 0xff0c0c0e},
};

constexpr QRgb disabledLight = 0xff77777f;
constexpr QRgb disabledDark = 0xff94949c;

QPalette paletteOf(QRgb PaletteColor::* shade, QRgb disabled)
{
    QPalette palette;
    for (const PaletteColor& color : colors)
        palette.setColor(color.role, QColor(color.*shade));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(disabled));
    return palette;
}

/// Fields and boxes to tick are outlined in a darker shade of the window, which does not show on a dark one.
/// They are told of a lighter window, so that their outline stands out from the real one.
void outlineFields(QPalette palette)
{
    palette.setColor(QPalette::Window, QColor(0x9b9ca4));
    for (const char* kind : {"QLineEdit", "QAbstractSpinBox", "QComboBox", "QCheckBox", "QRadioButton",
                             "QPlainTextEdit", "QTextEdit"})
        QApplication::setPalette(palette, kind);
}

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalSettings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

/// What the desktop prefers.
bool desktopIsDark()
{
    constexpr int milliseconds = 500;
    QDBusInterface settings(portal, portalPath, portalSettings, QDBusConnection::sessionBus());
    settings.setTimeout(milliseconds);
    if (!settings.isValid())
        return false;
    const QDBusReply<QVariant> reply = settings.call(QStringLiteral("Read"), appearanceGroup, colorScheme);
    constexpr uint prefersDark = 1;
    QVariant value = reply.value();
    while (value.canConvert<QDBusVariant>()) // older portals wrap it twice
        value = value.value<QDBusVariant>().variant();
    return reply.isValid() && value.toUInt() == prefersDark;
}

/// Buttons whose texts do not touch their edges, in languages with longer words as well.
class RoomyButtons final : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override
    {
        constexpr int room = 12;
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return type == CT_PushButton ? size + QSize(room, 0) : size;
    }
};

/// What the style does not give: room around cells and entries, and calm tool bars.
const QString roomyStyle = QStringLiteral(R"(
QToolBar { border: 0; spacing: 2px; padding: 3px 6px; }
QToolButton { padding: 4px; border-radius: 5px; border: 1px solid transparent; }
QToolButton:hover:enabled { background: palette(midlight); }
QToolButton:pressed, QToolButton:checked { background: palette(mid); }
QToolButton:focus { border-color: palette(highlight); }
QToolTip { padding: 3px; }
QMenu { padding: 4px; }
QSplitter::handle { background: palette(mid); width: 1px; }
QTableView { gridline-color: palette(mid); }
QTabWidget::pane { border: 1px solid palette(mid); }
QHeaderView::section { background: palette(base); color: @quiet; border: 0;
    border-bottom: 1px solid palette(mid); padding: 5px 8px; font-weight: 600; }
QTableCornerButton::section { background: palette(base); border: 0; border-bottom: 1px solid palette(mid); }
QStatusBar::item { border: 0; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
)");

} // namespace

QPalette lightPalette()
{
    return paletteOf(&PaletteColor::light, disabledLight);
}

QPalette darkPalette()
{
    return paletteOf(&PaletteColor::dark, disabledDark);
}

bool isDarkAppearance()
{
    constexpr int middle = 128;
    return QApplication::palette().color(QPalette::Window).lightness() < middle;
}

AppearanceController::AppearanceController(const Settings& settings) : settings_(settings)
{
    QApplication::setStyle(new RoomyButtons(QStringLiteral("Fusion"))); // which the application owns
    QDBusConnection::sessionBus().connect(portal, portalPath, portalSettings,
                                          QStringLiteral("SettingChanged"), this,
                                          SLOT(desktopSettingChanged(QString, QString)));
    apply();
}

bool AppearanceController::isDarkWanted() const
{
    const QString wanted = settings_.text(QStringLiteral("appearance")).value_or(QString());
    if (wanted == QStringLiteral("system"))
        return desktopIsDark();
    return wanted == QStringLiteral("dark");
}

void AppearanceController::apply()
{
    const bool isDark = isDarkWanted();
    if (std::exchange(isDark_, isDark) == isDark)
        return;
    const QPalette palette = isDark ? darkPalette() : lightPalette();
    QApplication::setPalette(palette);
    if (isDark)
        outlineFields(palette);
    auto* application = static_cast<QApplication*>(QCoreApplication::instance());
    application->setStyleSheet(QString()); // colours of a style sheet are looked up when it is set
    application->setStyleSheet(
        QString(roomyStyle)
            .replace(QStringLiteral("@quiet"), palette.color(QPalette::PlaceholderText).name()));
    Q_EMIT changed();
}

void AppearanceController::desktopSettingChanged(const QString& group, const QString& key)
{
    if (group == appearanceGroup && key == colorScheme)
        apply();
}

} // namespace ledra
