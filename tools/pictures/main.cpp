#include "Scenes.h"

#include "host/setup/SetupFile.h"
#include "host/support/InputError.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStyle>
#include <cstdio>

namespace {

QPalette darkPalette()
{
    QPalette palette;
    const QColor surface(45, 45, 48);
    palette = QPalette(surface, surface);
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::Link, QColor(110, 170, 255));
    palette.setColor(QPalette::Disabled, QPalette::Text, Qt::gray);
    return palette;
}

QSize sizeOf(const QString& text, const ko::FrameWindow& window)
{
    const QStringList sides = text.split(QLatin1Char('x'));
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : window.sizeHint();
}

bool paint(const QCommandLineParser& line)
{
    const QStringList arguments = line.positionalArguments();
    const std::string language = line.isSet("language") ? ko::readFile(line.value("language").toStdString()) : "";
    for (const ko::pictures::Scene& scene : ko::pictures::scenes()) {
        if (arguments.at(0).toStdString() != scene.name)
            continue;
        ko::FrameWindow window(language);
        // The pictures must not depend on this machine.
        window.space().freeSpace = [](const std::string&) { return 250e9; };
        window.open(arguments.at(1).toStdString());
        window.services().clock.standAt(ko::readClockTime("2026-11-21 09:30:00"));
        window.resize(sizeOf(line.value("size"), window));
        window.show();
        QApplication::processEvents();
        return scene.paint(window).save(arguments.at(2));
    }
    return false;
}

} // namespace

/// ko-pictures [--dark] [--language STRINGS] [--size WxH] SCENE SETUP FILE: paints a picture.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QCommandLineParser line;
    line.addOptions({{"dark", "dark"}, {"language", "string file", "file"}, {"size", "window size", "WxH"}});
    line.process(application);
    if (line.isSet("dark"))
        QApplication::setPalette(darkPalette());
    try {
        if (line.positionalArguments().size() == 3 && paint(line))
            return 0;
        std::fprintf(stderr, "no picture\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}
