#pragma once

#include <QQuickItem>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include "Business/HistoryKeys.h"
#include "Business/TouchRecord.h"
#include "Business/WXLUserEventReporter.h"
#include "Platform/SerialQueue.h"
#include "Presentation/Helpers/HitTestHook.h"
#include "Support/Histories.h"

/// A hook on the real application that records into a store of its own, on a time that the test sets.
struct Taps {
    Taps() { qApp->installEventFilter(&hook); }

    /// A press and a release of the left button, a second after the one before.
    void press(QWindow *window, const QPoint &position)
    {
        clock.time = clock.time.addSecs(1);
        QTest::mouseClick(window, Qt::LeftButton, {}, position);
    }
    /// In the middle of an item, or of a widget.
    void press(const QQuickItem *item, QPointF place = {0.5, 0.5})
    {
        const QPointF scene = item->mapToScene({item->width() * place.x(), item->height() * place.y()});
        press(item->window(), scene.toPoint());
    }
    void press(const QWidget *widget)
    {
        press(widget->window()->windowHandle(), widget->mapTo(widget->window(), widget->rect().center()));
    }
    /// What is stored by now, as "class/screen/property" each.
    [[nodiscard]] QStringList all()
    {
        for (int turn = 0; turn < 3; ++turn) // the report, the change, the store of it
            reporter.eventQueue().workingQueue().waitUntilDone();
        QStringList taps;
        for (const auto &tap :
             wexel::storedRecordsOf<wexel::TouchRecord>(repository, wexel::kUserEventReportKey))
            taps.append(
                QStringList({*tap->className, *tap->viewController, *tap->property}).join(QLatin1Char('/')));
        return taps;
    }
    /// The class of the last one, when the last press was recorded.
    template <typename... Where>
    [[nodiscard]] std::string classAt(Where... where)
    {
        const auto before = all().size();
        press(where...);
        const QStringList after = all();
        return after.size() == before + 1 ? after.last().section(QLatin1Char('/'), 0, 0).toStdString() : "";
    }

    QTemporaryDir folder;
    wexel::WXLAppRepository repository{
        wexel::makeUserDefaults(folder.filePath(QStringLiteral("store")), [](auto, auto) {})};
    wexel::SetClock clock;
    wexel::WXLDateProvider dates{clock};
    wexel::WXLUserEventReporter reporter{repository, dates};
    wexel::HitTestHook hook{clock, [this]() -> auto &{return reporter;
}
}
;
}
;
