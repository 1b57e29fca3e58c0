// TevDrawOpCatalog: every drawing operation of the library as the host offers it, one row each:
// the action's name and text, its tooltip, the menu group it belongs to, the glyph of its
// generated icon, and how to make the operation. Menus and the toolbar are built from this table,
// so a new operation is one more row.
#ifndef TEVDRAWOPCATALOG_H
#define TEVDRAWOPCATALOG_H

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class IDrawOp;

struct TevDrawOpEntry {
    QString name;     // object name of the action, "actionBox"
    QString text;     // menu text
    QString tooltip;  // what the user does with it, step by step
    QString group;    // "Curves", "Solids" or "Sweeps"
    QString glyph;    // one or two characters drawn on the icon
    std::function<std::unique_ptr<IDrawOp>()> make;
};

class TevDrawOpCatalog
{
public:
    // The rows in menu order.
    static const std::vector<TevDrawOpEntry>& Entries();
    // The groups in menu order.
    static QStringList Groups();
};

#endif
