#include "Presentation/Coordinator/WXLDisplayWindow.h"

#include <QGuiApplication>
#include <QQmlComponent>

#include "Platform/Log.h"
#include "Presentation/Coordinator/FlowView.h"
#include "Presentation/Helpers/ArtworkProvider.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Helpers/Stage.h"

namespace wexel {

namespace {

const QString module = QStringLiteral("qrc:/wexel/qml/Wexel/Screens/");

void fill(QQuickItem &item, const QQuickItem &parent)
{
    const auto resize = [&item, &parent] { item.setSize(parent.size()); };
    resize();
    QObject::connect(&parent, &QQuickItem::widthChanged, &item, resize);
    QObject::connect(&parent, &QQuickItem::heightChanged, &item, resize);
}

// With its first item Qt Quick looks up, once for the process, how items tell assistive technology what they are. Where
// the host does not use Qt Quick, that item is this window's own, and without Qt Quick's types nothing would be found.
QWindow *noParentButTypes()
{
    static const bool areKnown = [] {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nQtObject {}", {});
        return component.isReady();
    }();
    Q_UNUSED(areKnown)
    return nullptr;
}

} // namespace

WXLDisplayWindow::WXLDisplayWindow() : QQuickWindow(noParentButTypes())
{
    setProperty(displayWindowProperty, true);
    setTitle(QGuiApplication::applicationDisplayName());
    setFlags(Qt::Dialog | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setModality(Qt::ApplicationModal);
    Stage::shared().update(); // the host may have shown its window a moment ago
    setGeometry(Stage::shared().geometry());
    contentItem()->setSize(size()); // the screens want to know before the window is shown
    m_engine.addImportPath(QStringLiteral(":/wexel/qml"));
    m_engine.addImageProvider(QStringLiteral("artwork"), new ArtworkProvider); // takes it
    m_view = static_cast<FlowView *>(make("FlowScreen.qml", contentItem()));
    QCoreApplication::instance()->installEventFilter(this);
    connect(&Stage::shared(), &Stage::changed, this, &WXLDisplayWindow::followStage);
}

WXLDisplayWindow::~WXLDisplayWindow()
{
    delete m_view; // before the engine that it uses
}

// The documents are part of the library, but Qt Quick's own module may be missing where the host runs.
QQuickItem *WXLDisplayWindow::make(const char *document, QQuickItem *parent)
{
    QQmlComponent component(&m_engine, QUrl(module + QString::fromUtf8(document)));
    QObject *object = component.beginCreate(m_engine.rootContext());
    auto *item = qobject_cast<QQuickItem *>(object);
    if (item == nullptr) {
        log(QStringLiteral("WXLDisplayWindow: %1").arg(component.errorString().trimmed()));
        delete object;
        return nullptr;
    }
    item->setParentItem(parent);
    item->setParent(parent);
    fill(*item, *parent);
    component.completeCreate();
    return item;
}

QQuickItem *WXLDisplayWindow::makeScreen(const char *document)
{
    return m_view != nullptr ? make(document, &m_view->navigationController()) : nullptr;
}

void WXLDisplayWindow::makeKeyAndVisible()
{
    followStage();
    raise();
    requestActivate();
}

void WXLDisplayWindow::followStage()
{
    const Stage &stage = Stage::shared();
    if (stage.window() == nullptr) {
        hide();
        if (onStageLost)
            onStageLost();
        return;
    }
    if (!stage.isShown())
        return hide();
    if (!isVisible())
        setTransientParent(stage.topWindow());
    setGeometry(stage.geometry());
    show();
    if (transientParent() != stage.window())
        raise(); // above the button, which keeps itself above dialogs
}

// An application that is about to quit gives up when a window does not close.
bool WXLDisplayWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == QCoreApplication::instance() && event->type() == QEvent::Quit) {
        hide();
        if (onStageLost)
            onStageLost();
    }
    return QQuickWindow::eventFilter(watched, event);
}

bool WXLDisplayWindow::event(QEvent *event)
{
    if (event->type() == QEvent::Close) {
        event->ignore(); // the flow closes by itself, after its animation
        if (onCloseRequest)
            onCloseRequest();
        return true;
    }
    return QQuickWindow::event(event);
}

} // namespace wexel
