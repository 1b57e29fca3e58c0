#include "TevMaterialDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include <string>

TevMaterialDialog::TevMaterialDialog(const TevAnalysisModel::Material& start, QWidget* parent)
    : QDialog(parent), m_material(start)
{
    setObjectName("materialDialog");
    setWindowTitle(tr("Material"));
    auto edit = [this](const char* name, double value) {
        auto* line = new QLineEdit(QString::number(value, 'g', 12), this);
        line->setObjectName(name);
        return line;
    };
    m_young = edit("materialYoung", start.young);
    m_poisson = edit("materialPoisson", start.poisson);
    m_density = edit("materialDensity", start.density);
    m_reason = new QLabel(this);
    m_reason->setObjectName("materialReason");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName("buttonBox");
    connect(buttons, &QDialogButtonBox::accepted, this, &TevMaterialDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* form = new QFormLayout(this);
    form->addRow(tr("Young's modulus"), m_young);
    form->addRow(tr("Poisson's ratio"), m_poisson);
    form->addRow(tr("Density"), m_density);
    form->addRow(m_reason);
    form->addRow(buttons);
}

bool TevMaterialDialog::Parse(const QString& young, const QString& poisson, const QString& density,
                              TevAnalysisModel::Material* material, QString* error)
{
    bool ok[3] = {false, false, false};
    TevAnalysisModel::Material m;
    m.young = young.trimmed().toDouble(&ok[0]);
    m.poisson = poisson.trimmed().toDouble(&ok[1]);
    m.density = density.trimmed().toDouble(&ok[2]);
    if (!ok[0] || !ok[1] || !ok[2]) {
        if (error) *error = tr("Type a number in each field");
        return false;
    }
    std::string reason;
    if (!TevAnalysisModel::CheckMaterial(m, &reason)) {
        if (error) *error = QString::fromStdString(reason);
        return false;
    }
    *material = m;
    return true;
}

void TevMaterialDialog::accept()
{
    QString error;
    if (!Parse(m_young->text(), m_poisson->text(), m_density->text(), &m_material, &error)) {
        m_reason->setText(error);
        return;
    }
    QDialog::accept();
}
