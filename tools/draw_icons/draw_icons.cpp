// Draws an SVG picture into a square PNG: the build turns the icons into pixels, so that the program needs no SVG.
#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QSvgRenderer>

#include <cstdio>

namespace {

constexpr int largestSize = 1024;

int fail(const QString& reason)
{
    std::fputs(("draw_icons: " + reason + "\n").toLocal8Bit().constData(), stderr);
    return 1;
}

/// The picture in its own proportions, in the middle of a transparent square.
QImage drawn(QSvgRenderer& picture, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QSizeF fitted = picture.viewBoxF().size().scaled(size, size, Qt::KeepAspectRatio);
    const QRectF target((size - fitted.width()) / 2, (size - fitted.height()) / 2, fitted.width(), fitted.height());
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    picture.render(&painter, target);
    return image;
}

}  // namespace

// No application object: drawing shapes into an image needs none, and so the build needs no display.
int main(int argc, char* argv[])
{
    if (argc != 4)
        return fail(QStringLiteral("usage: draw_icons picture.svg size picture.png"));
    const QString source = QFile::decodeName(argv[1]);
    const QString target = QFile::decodeName(argv[3]);

    bool isNumber = false;
    const int size = QByteArray(argv[2]).toInt(&isNumber);
    if (!isNumber || size < 1 || size > largestSize)
        return fail(
            QStringLiteral("no size between 1 and %1: %2").arg(largestSize).arg(QString::fromLocal8Bit(argv[2])));

    QSvgRenderer picture(source);
    if (!picture.isValid() || picture.viewBoxF().isEmpty())
        return fail(QStringLiteral("no SVG picture: ") + source);
    if (!drawn(picture, size).save(target, "PNG"))
        return fail(QStringLiteral("cannot write ") + target);
    return 0;
}
