#include "Presentation/Screen/WXLToolbarContainerView.h"

#include <utility>

#include "Presentation/Helpers/Colors.h"

namespace wexel {

QList<QColor> WXLToolbarContainerView::paletteColors()
{
    return {Colors::paletteGreyColor(),      Colors::paletteYellowColor(), Colors::paletteGreenColor(),
            Colors::defaultLightBlueColor(), Colors::palettePurpleColor(), Colors::paletteRedColor()};
}

void WXLToolbarContainerView::controlPressed(Tool tool, const QColor &selectedColor)
{
    m_selectedTool = tool;
    m_selectionColor = selectedColor;
    Q_EMIT selectionChanged();
}

void WXLToolbarContainerView::animateShowingPaletteWithDrawingColor(const QColor &color)
{
    m_currentDrawingColorIndex = static_cast<int>(paletteColors().indexOf(color));
    Q_EMIT selectionChanged();
    setPaletteShown(true);
}

void WXLToolbarContainerView::animateHidingPalette()
{
    setPaletteShown(false);
}

void WXLToolbarContainerView::animateSelectingDrawingColorAt(int index)
{
    if (std::exchange(m_currentDrawingColorIndex, index) == index) // nothing changes that could end
        Q_EMIT colorSelected();
    else
        Q_EMIT selectionChanged();
}

void WXLToolbarContainerView::setPaletteShown(bool shown)
{
    if (std::exchange(m_isPaletteShown, shown) != shown)
        Q_EMIT paletteShownChanged();
}

} // namespace wexel
