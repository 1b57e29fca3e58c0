// PolygonNumInputDlg: asks for the number of edges of a regular polygon (default 6). The field
// takes digits only, up to 1000; OK stores the number in m_PolygonNumber, an empty field as 0,
// which the caller rejects.
#ifndef POLYGONNUMINPUTDLG_H
#define POLYGONNUMINPUTDLG_H

#include <QDialog>

class QLineEdit;

class PolygonNumInputDlg : public QDialog
{
    Q_OBJECT

public:
    explicit PolygonNumInputDlg(QWidget* parent);

    int m_PolygonNumber;

public slots:
    void accept() override;

private:
    QLineEdit* m_EditNumber;
};

#endif
