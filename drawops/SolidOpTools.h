// Pieces the solid primitive operations share: the height dialog, the refusal box of a bad
// height and the thick green rubber-band quad of the box and the wedge.
#ifndef SOLIDOPTOOLS_H
#define SOLIDOPTOOLS_H

#include <gp_Pnt.hxx>
#include <vtkActor.h>
#include <vtkSmartPointer.h>

class TevBasicViewer;

namespace SolidOpTools {

// Runs a DataInputDlg with no parent, its angle field enabled as `angleEnabled` says. On OK,
// true with the typed height and angle (an empty field reads 0.0); on Cancel, false.
bool AskHeight(bool angleEnabled, double& height, double& angle);

// The modal box "Height error input", titled "Error", with an OK button and no parent. With
// `translated` both texts pass through QObject::tr first.
void ShowHeightError(bool translated);

// Replaces `band` in the viewer's default renderer by a green wireframe quad over `corners` (in
// order), line width 3, opacity 0.8. When `p1` and `p2`, the two clicked points, coincide
// exactly, the old band only leaves the renderer and nothing new is shown.
void ShowTempQuad(TevBasicViewer* viewer, vtkSmartPointer<vtkActor>& band, const gp_Pnt& p1, const gp_Pnt& p2,
                  const gp_Pnt corners[4]);

}  // namespace SolidOpTools

#endif
