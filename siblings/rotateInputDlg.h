// rotateInputDlg: the axis and the angle of a revolution: a point on the axis (default the
// origin), the axis direction (default 1, 0, 0) and the angle in degrees (default 360, from -360
// to 360, negative turning the other way). OK with a zero direction is refused with a note in
// the dialog; otherwise OK stores the values.
#ifndef ROTATEINPUTDLG_H
#define ROTATEINPUTDLG_H

#include <QDialog>
#include <gp_Ax1.hxx>
#include <gp_Dir.hxx>
#include <gp_Pnt.hxx>

class QLabel;
class QLineEdit;

class rotateInputDlg : public QDialog
{
    Q_OBJECT

public:
    explicit rotateInputDlg(QWidget* parent);

    // The axis through m_DlgRotatePoint along GetRotateDir().
    gp_Ax1 GetRotateAxis();
    gp_Dir GetRotateDir();

    double m_DlgRotateAngle;
    gp_Pnt m_DlgRotatePoint;

public slots:
    void accept() override;

private:
    QLineEdit* m_EditPoint[3];
    QLineEdit* m_EditDir[3];
    QLineEdit* m_EditAngle;
    QLabel* m_Error;
    gp_Dir m_Direction;
};

#endif
