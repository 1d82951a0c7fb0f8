#pragma once

#include <QQuickImageProvider>

namespace wexel {

/// The library's own pictures for mark-up, as "image://artwork/owl/24": the name, and the side in points. They have the
/// pixels of the densest screen.
class ArtworkProvider : public QQuickImageProvider
{
public:
    ArtworkProvider() : QQuickImageProvider(Image) { }
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace wexel
