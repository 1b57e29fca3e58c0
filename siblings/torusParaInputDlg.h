// torusParaInputDlg: the sweep radius of a torus (the radius of its tube, default 1) and three
// angles in degrees: the start and end of the tube's section (defaults -180 and 180, the whole
// tube) and the sweep about the axis (default 360). DisableAngleUI() greys the angles out.
// OK stores the values; the caller checks them against the major radius.
#ifndef TORUSPARAINPUTDLG_H
#define TORUSPARAINPUTDLG_H

#include <QDialog>

class QLineEdit;

class torusParaInputDlg : public QDialog
{
    Q_OBJECT

public:
    explicit torusParaInputDlg(QWidget* parent);

    double GetSweepRadius();
    void DisableAngleUI();

    double m_DlgAngle1;
    double m_DlgAngle2;
    double m_DlgAngle3;

public slots:
    void accept() override;

private:
    QLineEdit* m_EditSweepRadius;
    QLineEdit* m_EditAngle[3];
    double m_SweepRadius;
};

#endif
