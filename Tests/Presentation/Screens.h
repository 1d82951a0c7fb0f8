#pragma once

#include <gtest/gtest.h>

#include <vector>

#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QWindow>

/// The left button at a place on the screen, whichever window it is told to, wherever that window is by then.
inline void pressAt(QWindow &window, const QPoint &global)
{
    QTest::mousePress(&window, Qt::LeftButton, {}, window.mapFromGlobal(global));
}
inline void moveTo(QWindow &window, const QPoint &global)
{
    QTest::mouseMove(&window, window.mapFromGlobal(global));
}
inline void releaseAt(QWindow &window, const QPoint &global)
{
    QTest::mouseRelease(&window, Qt::LeftButton, {}, window.mapFromGlobal(global));
}

/// Pressed at the first place, moved to each of the others, released at the last.
inline void drag(QWindow &window, const std::vector<QPoint> &places)
{
    pressAt(window, places.front());
    for (std::size_t i = 1; i < places.size(); ++i)
        moveTo(window, places[i]);
    releaseAt(window, places.back());
}

/// What can be tapped on one of the library's screens, by its accessible name; null when there is none.
inline QQuickItem *tappable(QQuickItem *root, const QString &name)
{
    if (root->property("name").toString() == name && root->property("pressed").isValid())
        return root;
    for (QQuickItem *child : root->childItems()) {
        if (QQuickItem *found = tappable(child, name))
            return found;
    }
    return nullptr;
}

inline void click(const QQuickItem *item)
{
    const QPointF centre = item->mapToScene(item->boundingRect().center());
    QTest::mouseClick(item->window(), Qt::LeftButton, {}, centre.toPoint());
}

inline void expectNear(const QRectF &actual, const QRectF &expected, double tolerance = 0.01)
{
    EXPECT_NEAR(actual.x(), expected.x(), tolerance);
    EXPECT_NEAR(actual.y(), expected.y(), tolerance);
    EXPECT_NEAR(actual.width(), expected.width(), tolerance);
    EXPECT_NEAR(actual.height(), expected.height(), tolerance);
}
