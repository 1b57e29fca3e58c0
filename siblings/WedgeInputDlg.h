// WedgeInputDlg: the height of a wedge (default 10) and its top face, given as fractions of the
// base rectangle that the mouse drew: X from "Top X min" to "Top X max" times dx, Y from
// "Top Y min" to "Top Y max" times dy (defaults 0, 0, 1, 0: a ramp that rises to full height
// over the base's edge at Y = 0). OK stores the values for GetWedgeParameter().
#ifndef WEDGEINPUTDLG_H
#define WEDGEINPUTDLG_H

#include <QDialog>

class QLineEdit;

class WedgeInputDlg : public QDialog
{
    Q_OBJECT

public:
    explicit WedgeInputDlg(QWidget* parent);

    // The height, then top X min, top Y min, top X max, top Y max, in the order CreateWedge takes.
    void GetWedgeParameter(double& height, double& topXMin, double& topYMin, double& topXMax, double& topYMax);

public slots:
    void accept() override;

private:
    QLineEdit* m_EditHeight;
    QLineEdit* m_EditTop[4];
    double m_Height;
    double m_Top[4];
};

#endif
