// TevMaterialDialog: Young's modulus, Poisson's ratio and density typed in, as numbers in the
// "C" locale (so 2.1e5 and 7.85e-9 are accepted). OK is refused, with the reason shown, until
// the three texts are numbers the analysis model accepts.
#ifndef TEVMATERIALDIALOG_H
#define TEVMATERIALDIALOG_H

#include "TevAnalysisModel.h"

#include <QDialog>

class QLabel;
class QLineEdit;

class TevMaterialDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TevMaterialDialog(const TevAnalysisModel::Material& start, QWidget* parent = nullptr);

    // The values typed, valid once the dialog was accepted.
    TevAnalysisModel::Material Material() const { return m_material; }

    // The material read from three texts; false with the reason when one is not a number or
    // the values are out of range.
    static bool Parse(const QString& young, const QString& poisson, const QString& density,
                      TevAnalysisModel::Material* material, QString* error);

public slots:
    void accept() override;

private:
    QLineEdit* m_young;
    QLineEdit* m_poisson;
    QLineEdit* m_density;
    QLabel* m_reason;
    TevAnalysisModel::Material m_material;
};

#endif
