// sphereParaInputdlg: the three angles of a sphere in degrees: the lower latitude (default -90,
// range -90 to 0), the upper latitude (default 90, range 0 to 90) and the sweep about the axis
// (default 360, range 0 to 360). OK stores them in the public fields; the caller checks ranges.
#ifndef SPHEREPARAINPUTDLG_H
#define SPHEREPARAINPUTDLG_H

#include <QDialog>

class QLineEdit;

class sphereParaInputdlg : public QDialog
{
    Q_OBJECT

public:
    explicit sphereParaInputdlg(QWidget* parent);

    double m_DlgAngle1;
    double m_DlgAngle2;
    double m_DlgAngle3;

public slots:
    void accept() override;

private:
    QLineEdit* m_EditAngle[3];
};

#endif
