#include "framework/MissingDisplay.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QStringList>

#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <memory>

namespace {

/// The value after the option @p name, which may stand with one or two dashes.
QByteArray argument(const char *name, int argc, const char *const *argv)
{
    for (int i = 1; i + 1 < argc; ++i) {
        const QByteArray text = argv[i];
        if (text == QByteArray("-") + name || text == QByteArray("--") + name)
            return argv[i + 1];
    }
    return {};
}

QString waylandSocket()
{
    QString name = qEnvironmentVariable("WAYLAND_DISPLAY", QStringLiteral("wayland-0"));
    return QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).absoluteFilePath(name);
}

bool canReachWayland()
{
    const QByteArray path = QFile::encodeName(waylandSocket());
    sockaddr_un address{};
    if (path.size() >= static_cast<int>(sizeof(address.sun_path)))
        return false;
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), address.sun_path);
    const int handle = socket(AF_UNIX, SOCK_STREAM, 0);
    if (handle < 0)
        return false;
    const bool isThere =
        connect(handle, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0;
    close(handle);
    return isThere;
}

struct Disconnect
{
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};

bool canReachX11(const QByteArray &display)
{
    // Kept open: a server without a session, such as Xvfb, starts anew when its last client leaves,
    // and would refuse the toolkit meanwhile.
    static std::unique_ptr<xcb_connection_t, Disconnect> connection;
    connection.reset(xcb_connect(display.isEmpty() ? nullptr : display.constData(), nullptr));
    return xcb_connection_has_error(connection.get()) == 0;
}

/// What the toolkit would try, in its order.
QStringList platforms(const QByteArray &wanted)
{
    if (!wanted.isEmpty())
        return QString::fromLocal8Bit(wanted).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    const QDir plugins(QLibraryInfo::location(QLibraryInfo::PluginsPath) +
                       QStringLiteral("/platforms"));
    const bool prefersWayland =
        qgetenv("XDG_SESSION_TYPE") == "wayland" &&
        !qgetenv("XDG_CURRENT_DESKTOP").toLower().contains("gnome") &&
        !plugins.entryList({QStringLiteral("*qwayland*")}, QDir::Files).isEmpty();
    if (prefersWayland)
        return {QStringLiteral("wayland"), QStringLiteral("xcb")};
    return {QStringLiteral("xcb")};
}

QString reason(bool triedX11, const QByteArray &display)
{
    if (!triedX11)
        return QCoreApplication::translate("MissingDisplay", "nothing answers at %1")
            .arg(waylandSocket());
    const QString name =
        display.isEmpty() ? qEnvironmentVariable("DISPLAY") : QString::fromLocal8Bit(display);
    if (name.isEmpty())
        return QCoreApplication::translate("MissingDisplay", "DISPLAY is not set");
    return QCoreApplication::translate("MissingDisplay", "the display \"%1\" does not answer")
        .arg(name);
}

} // namespace

QString missingDisplay(int argc, const char *const *argv)
{
    const QByteArray option = argument("platform", argc, argv);
    const QByteArray display = argument("display", argc, argv);
    bool triedX11 = false;
    for (const QString &entry : platforms(option.isEmpty() ? qgetenv("QT_QPA_PLATFORM") : option)) {
        const QString platform = entry.section(QLatin1Char(':'), 0, 0);
        const bool isX11 = platform == QLatin1String("xcb");
        const bool isWayland = platform.startsWith(QLatin1String("wayland"));
        triedX11 = triedX11 || isX11;
        // Other platforms, such as "offscreen", need nothing to connect to.
        if (isX11 ? canReachX11(display) : !isWayland || canReachWayland())
            return {};
    }
    return QCoreApplication::translate("MissingDisplay",
                                       "There is no display to open a window on (%1).")
        .arg(reason(triedX11, display));
}

#else

QString missingDisplay(int, const char *const *)
{
    return {};
}

#endif
