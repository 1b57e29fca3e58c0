#include "TevIconFactory.h"

#include <QFont>
#include <QPainter>
#include <QPixmap>

QIcon TevIconFactory::Glyph(const QString& glyph, const QColor& colour)
{
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colour.darker(140));
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(1.5, 1.5, 29, 29), 6, 6);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(glyph.size() > 1 ? 13 : 18);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(pixmap.rect(), Qt::AlignCenter, glyph);
    return QIcon(pixmap);
}

QColor TevIconFactory::GroupColour(const QString& group)
{
    if (group == "Curves") return QColor(46, 125, 50);
    if (group == "Solids") return QColor(21, 101, 192);
    if (group == "Sweeps") return QColor(173, 20, 87);
    return QColor(97, 97, 97);
}
