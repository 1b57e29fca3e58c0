// TruncatedConeInputDlg: the height (default 10), the top radius (default 5; 0 makes a pointed
// cone) and the angle in degrees (default 360) of a truncated cone whose bottom radius comes
// from the mouse. DisableAngleInput() greys the angle out. OK stores the values.
#ifndef TRUNCATEDCONEINPUTDLG_H
#define TRUNCATEDCONEINPUTDLG_H

#include <QDialog>

class QLineEdit;

class TruncatedConeInputDlg : public QDialog
{
    Q_OBJECT

public:
    explicit TruncatedConeInputDlg(QWidget* parent);

    void DisableAngleInput();

    double m_DlgHeight;
    double m_DlgTopRadius;
    double m_DlgAngle;

public slots:
    void accept() override;

private:
    QLineEdit* m_EditHeight;
    QLineEdit* m_EditTopRadius;
    QLineEdit* m_EditAngle;
};

#endif
