// TevIconFactory: the icons of the host's actions, drawn at run time so that the host carries no
// image files: a rounded tile in a group's colour with a short glyph on it.
#ifndef TEVICONFACTORY_H
#define TEVICONFACTORY_H

#include <QColor>
#include <QIcon>
#include <QString>

class TevIconFactory
{
public:
    // A 32 x 32 tile of `colour` with `glyph` centred in white.
    static QIcon Glyph(const QString& glyph, const QColor& colour);
    // The tile colour of a drawing group ("Curves", "Solids", "Sweeps"); grey for any other.
    static QColor GroupColour(const QString& group);
};

#endif
