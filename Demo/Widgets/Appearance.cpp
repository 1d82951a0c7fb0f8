#include "Appearance.h"

#include <QApplication>
#include <QFile>
#include <QPalette>
#include <QStyleFactory>

namespace {

QPalette lightPalette()
{
    QPalette palette(QColor(0xF3, 0xF1, 0xEB)); // the style derives the shades of frames and buttons from it
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, Ink::text);
        palette.setColor(QPalette::Disabled, role, QColor(0xA9, 0xAD, 0xAE));
    }
    palette.setColor(QPalette::Base, QColor(0xFF, 0xFE, 0xFB));
    palette.setColor(QPalette::Highlight, Ink::accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, Ink::accent);
    palette.setColor(QPalette::PlaceholderText, QColor(0x98, 0x9F, 0xA4));
    return palette;
}

} // namespace

void applyAppearance(QApplication &application)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(lightPalette());
    QApplication::setWindowIcon(namedIcon(QStringLiteral("fieldnotes")));
    QFile sheet(QStringLiteral(":/fieldnotes.qss"));
    if (sheet.open(QIODevice::ReadOnly))
        application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

QIcon namedIcon(const QString &name)
{
    return QIcon(QStringLiteral(":/Icons/%1.svg").arg(name));
}
