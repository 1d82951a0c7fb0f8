#pragma once

#include <QColor>
#include <QList>
#include <QQuickItem>

namespace wexel {

inline constexpr double paletteButtonSize = 24.0; ///< diameter of a colour button, in points
inline constexpr double selectedColorBorderWidth = 3.0; ///< points
inline constexpr double colorAnimationDuration = 0.2; ///< seconds, as the others
inline constexpr double colorBorderAnimationDuration = 0.1;
inline constexpr double animationDuration = 0.4;

/// The toolbar of the screenshot editor: four tools, and the palette that fans out of them. It holds what is selected and
/// tells what was pressed; its drawing animates the changes. Main thread only.
class WXLToolbarContainerView : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<QColor> paletteColors READ paletteColors CONSTANT)
    Q_PROPERTY(int currentDrawingColorIndex MEMBER m_currentDrawingColorIndex NOTIFY selectionChanged)
    Q_PROPERTY(Tool selectedTool MEMBER m_selectedTool NOTIFY selectionChanged)
    Q_PROPERTY(QColor selectionColor MEMBER m_selectionColor NOTIFY selectionChanged)
    Q_PROPERTY(bool isPaletteShown MEMBER m_isPaletteShown NOTIFY paletteShownChanged)
    Q_PROPERTY(double paletteButtonSize READ buttonSize CONSTANT)
    Q_PROPERTY(double selectedColorBorderWidth READ borderWidth CONSTANT)
    Q_PROPERTY(int colorAnimationMilliseconds READ colorMilliseconds CONSTANT)
    Q_PROPERTY(int colorBorderAnimationMilliseconds READ borderMilliseconds CONSTANT)

public:
    enum Tool { NoTool, Clear, Blur, Draw, Palette };
    Q_ENUM(Tool)

    using QQuickItem::QQuickItem;

    [[nodiscard]] static QList<QColor> paletteColors();
    [[nodiscard]] bool isPaletteShown() const { return m_isPaletteShown; }

    /// Selects one tool, in the colour, and deselects the others.
    void controlPressed(Tool tool, const QColor &selectedColor);
    void animateShowingPaletteWithDrawingColor(const QColor &color);
    void animateHidingPalette();
    /// The drawing reports the end of the animation with `colorSelected`.
    void animateSelectingDrawingColorAt(int index);

Q_SIGNALS:
    void selectionChanged();
    void paletteShownChanged();
    void colorSelected();

    void toolPressed(wexel::WXLToolbarContainerView::Tool tool);
    void clearPaletteButtonPressed();
    void colorButtonPressed(int index);

private:
    [[nodiscard]] static double buttonSize() { return wexel::paletteButtonSize; }
    [[nodiscard]] static double borderWidth() { return wexel::selectedColorBorderWidth; }
    [[nodiscard]] static int colorMilliseconds() { return qRound(colorAnimationDuration * 1000); }
    [[nodiscard]] static int borderMilliseconds() { return qRound(colorBorderAnimationDuration * 1000); }
    void setPaletteShown(bool shown);

    int m_currentDrawingColorIndex = -1;
    Tool m_selectedTool = NoTool;
    QColor m_selectionColor;
    bool m_isPaletteShown = false;
};

} // namespace wexel
