// Pieces the solid primitive operations share: the height dialog with the refusal of a bad
// height, and the colour of the box's and the wedge's rubber band.
#ifndef SOLIDOPTOOLS_H
#define SOLIDOPTOOLS_H

namespace SolidOpTools {

// The green of the box's and the wedge's rubber-band quad.
extern const double kQuadBandColour[3];

enum class HeightAnswer { Cancelled, Refused, Given };

// Which heights a dialog refuses: the box only exactly 0.0 (the field's validator keeps negative
// numbers out), with its texts passed through QObject::tr; the others 0.0 or less.
enum class HeightRule { ZeroOnly, PositiveOnly };

// Runs a DataInputDlg with no parent, its angle field enabled as `angleEnabled` says, and reads
// the typed height and angle (an empty field reads 0.0). A height that `rule` refuses gets the
// modal box "Height error input", titled "Error", with an OK button and no parent.
HeightAnswer AskHeight(bool angleEnabled, HeightRule rule, double& height, double& angle);

// The same box on its own, for the wedge, whose height comes from its own dialog.
void ShowHeightError(bool translated);

}  // namespace SolidOpTools

#endif
