#include "Presentation/Helpers/Shadow.h"

#include <cmath>
#include <vector>

#include <QPainter>

namespace wexel {

namespace {

/// Three passes of a mean over `2 * reach + 1` are close to a Gaussian.
void meanOfRows(QImage &image, int reach)
{
    std::vector<uchar> row(static_cast<size_t>(image.width()));
    const uchar *from = row.data();
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        uchar *line = image.scanLine(y);
        std::copy_n(line, width, row.begin());
        int sum = 0;
        for (int x = -reach; x < width; ++x) {
            sum += x + reach < width ? from[x + reach] : 0;
            sum -= x - reach - 1 >= 0 ? from[x - reach - 1] : 0;
            if (x >= 0)
                line[x] = static_cast<uchar>(sum / (2 * reach + 1));
        }
    }
}

void blurAlpha(QImage &alpha, qreal deviation)
{
    constexpr int passes = 3;
    // The variance of a mean over w pixels is (w^2 - 1) / 12.
    const int reach = qMax(1, qRound((std::sqrt(12 * deviation * deviation / passes + 1) - 1) / 2));
    for (int direction = 0; direction < 2; ++direction) {
        for (int pass = 0; pass < passes; ++pass)
            meanOfRows(alpha, reach);
        alpha = alpha.transformed(QTransform(0, 1, 1, 0, 0, 0)); // rows become columns, and back
    }
}

} // namespace

QImage shadow(const QSizeF &size, qreal cornerRadius, qreal blur, const QColor &color, qreal devicePixelRatio)
{
    const qreal margin = shadowMargin(blur);
    const QSizeF outer = size + QSizeF(2 * margin, 2 * margin);
    QImage alpha((outer * devicePixelRatio).toSize(), QImage::Format_Alpha8);
    alpha.fill(0);
    QPainter painter(&alpha);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(devicePixelRatio, devicePixelRatio);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(QRectF(QPointF(margin, margin), size), cornerRadius, cornerRadius);
    painter.end();
    blurAlpha(alpha, blur * devicePixelRatio);

    QImage image(alpha.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    image.setAlphaChannel(alpha); // times the colour's own
    image.setDevicePixelRatio(devicePixelRatio);
    return image;
}

} // namespace wexel
