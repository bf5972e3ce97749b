#include "app/look/Surface.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QThreadPool>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <vector>

namespace zelta {
namespace {

struct Shape
{
    QRectF rect;
    double radius;
    QBrush fill;
    QColor outline = Qt::transparent;
};

/// Low and high, round and nearly square, filled, shaded and outlined.
std::vector<Shape> shapes()
{
    QLinearGradient gradient(0, 0, 200, 200);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, QColor(255, 0, 0, 180));
    const QColor veil(20, 40, 60, 50);
    return {{{3, 2, 98, 54}, 10, veil},
            {{0, 0, 6, 300}, 3, veil},
            {{10, 20, 180, 26}, 13, veil},
            {{10, 10, 230, 270}, 16, veil, QColor(0, 0, 0, 90)},
            {{4, 4, 38, 38}, 10, gradient},
            {{2.5, 3.25, 120, 61.5}, 7.75, veil},
            {{5, 5, 100, 200}, 12, Qt::white, QColor(0, 0, 0, 90)}};
}

constexpr double ratios[] {1, 1.25, 1.5, 2, 3};

QImage canvas(double ratio)
{
    QImage image(qRound(260 * ratio), qRound(310 * ratio), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(QColor(240, 230, 220));
    return image;
}

int largestDifference(const QImage& one, const QImage& other)
{
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                std::abs(qBlue(a) - qBlue(b))});
        }
    }
    return largest;
}

TEST(Surface, ATranslucentShapeIsDrawnAsQtDrawsIt)
{
    for (const double ratio : ratios) {
        for (const Shape& shape : shapes()) {
            QImage ours = canvas(ratio);
            {
                QPainter painter(&ours);
                Surface::draw(painter, shape.rect, shape.radius, shape.fill, shape.outline);
            }
            QImage expected = canvas(ratio);
            {
                const bool hasLine = shape.outline.alpha() != 0;
                const double inset = hasLine ? 0.5 : 0;
                QPainter painter(&expected);
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setPen(hasLine ? QPen(shape.outline, 1) : QPen(Qt::NoPen));
                painter.setBrush(shape.fill);
                painter.drawRoundedRect(shape.rect.adjusted(inset, inset, -inset, -inset),
                                        shape.radius - inset, shape.radius - inset);
            }
            EXPECT_LE(largestDifference(ours, expected), 2) << ratio << ", height " << shape.rect.height();
        }
    }
}

TEST(Surface, ATranslucentShapeIsDrawnWithoutOtherThreads)
{
    const auto threadCount
        = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {}); };
    QThreadPool::globalInstance()->waitForDone(); // ends those that other drawing has begun
    const auto before = threadCount();
    for (const double ratio : ratios) {
        QImage image = canvas(ratio);
        QPainter painter(&image);
        for (const Shape& shape : shapes()) {
            if (shape.outline.alpha() == 0 || ratio == 1)
                Surface::draw(painter, shape.rect, shape.radius, shape.fill, shape.outline);
        }
        painter.setOpacity(0.4);
        Surface::draw(painter, {0, 0, 98, 54}, 10, Qt::blue);
    }
    EXPECT_EQ(threadCount(), before);
}

} // namespace
} // namespace zelta
