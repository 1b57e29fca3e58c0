// ExtrudInputDlg: the height (default 10, negative extrudes the other way) and the direction
// (default 0, 0, 1) of an extrusion. OK with a zero direction is refused with a note in the
// dialog; otherwise OK stores the height in m_ExtrudeHeight and the unit direction for
// GetExtrudeDirection().
#ifndef EXTRUDINPUTDLG_H
#define EXTRUDINPUTDLG_H

#include <QDialog>
#include <gp_Dir.hxx>

class QLabel;
class QLineEdit;

class ExtrudInputDlg : public QDialog
{
    Q_OBJECT

public:
    explicit ExtrudInputDlg(QWidget* parent);

    gp_Dir GetExtrudeDirection();

    double m_ExtrudeHeight;

public slots:
    void accept() override;

private:
    QLineEdit* m_EditHeight;
    QLineEdit* m_EditDir[3];
    QLabel* m_Error;
    gp_Dir m_Direction;
};

#endif
