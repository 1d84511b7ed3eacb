// Renders the application's SVG icon into the PNG sizes of the hicolor icon theme:
//   vellox_render_icon SOURCE.svg OUTPUT_DIR SIZE...  ->  OUTPUT_DIR/<S>x<S>/apps/vellox.png
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>

#include <cstdio>

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 4) {
        std::fprintf(stderr, "usage: vellox_render_icon SOURCE.svg OUTPUT_DIR SIZE...\n");
        return 2;
    }
    for (int i = 3; i < args.size(); ++i) {
        const int size = args.at(i).toInt();
        QImageReader reader(args.at(1));
        reader.setScaledSize(QSize(size, size));
        const QImage image = reader.read();
        const QString folder = QStringLiteral("%1/%2x%2/apps").arg(args.at(2)).arg(size);
        if (image.isNull() || !QDir().mkpath(folder) ||
            !image.save(folder + QStringLiteral("/vellox.png"))) {
            std::fprintf(stderr, "vellox_render_icon: %s at %d: %s\n", qPrintable(args.at(1)), size,
                         qPrintable(reader.errorString()));
            return 1;
        }
    }
    return 0;
}
