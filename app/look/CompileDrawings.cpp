// Records the line drawings as painter commands when the program is built: it draws them without reading SVG.
//
//     compile_drawings FOLDER FILE.svg...
//
// Writes NAME.pic for each file, 24 units wide, and for those with the usual line width also NAME.small.pic
// and NAME.bold.pic with heavier lines.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPicture>
#include <QSvgRenderer>
#include <array>
#include <cstdio>
#include <utility>

namespace {

constexpr auto usualWidth = "stroke-width=\"1.8\"";
constexpr auto heavierWidths = std::to_array<std::pair<const char*, const char*>>({
    {".small", "stroke-width=\"2.1\""},
    {".bold", "stroke-width=\"2.2\""},
});

bool record(const QByteArray& drawing, const QString& file)
{
    QSvgRenderer renderer(drawing);
    QPicture picture;
    QPainter painter(&picture);
    renderer.render(&painter, QRectF(0, 0, 24, 24));
    return renderer.isValid() && painter.end() && picture.save(file);
}

bool compile(const QString& source, const QDir& folder)
{
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray drawing = file.readAll();
    const QString name = folder.filePath(QFileInfo(source).completeBaseName());
    bool isWritten = record(drawing, name + QStringLiteral(".pic"));
    if (!drawing.contains(usualWidth))
        return isWritten;
    for (const auto& [suffix, width] : heavierWidths)
        isWritten = record(QByteArray(drawing).replace(usualWidth, width),
                           name + QLatin1String(suffix) + QStringLiteral(".pic"))
            && isWritten;
    return isWritten;
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    for (const QString& source : arguments.mid(2)) {
        if (!compile(source, QDir(arguments[1]))) {
            std::fprintf(stderr, "compile_drawings: %s: not recorded\n", qUtf8Printable(source));
            return 1;
        }
    }
    return 0;
}
