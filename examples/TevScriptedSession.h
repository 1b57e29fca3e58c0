// TevScriptedSession: the demo host's session without a user, for a screen nobody watches (the
// setup command runs it under Xvfb). It drives the window through its actions as a user would,
// with clicks on the view and answers to the dialogs:
//   1. a box and a cylinder standing on its corner;
//   2. the cylinder subtracted from the box (both chosen in the model tree);
//   3. a rectangle, extruded into a block (a sweep);
//   4. the isometric view, saved as model.png;
//   5. a surface mesh of every shape, shown in the mesh tab and saved as mesh.png;
//   6. the mesh written as NASTRAN bulk data (mesh.bdf) and as a listing (mesh.lst), the
//      document as model.xbf and model.step;
//   7. a 100 x 40 x 20 box with a vertical hole, meshed in quadratic tetrahedra, clamped at one
//      end face and loaded by a downward total force at the other (the faces put into the
//      selection as a click at the face level does), a steel typed into the material dialog,
//      solved by CalculiX and shown coloured by von Mises stress: analysis.png (left out, with
//      a line saying so, when ccx is not installed).
// Each stage prints one line to standard output. Files go to the output folder given.
#ifndef TEVSCRIPTEDSESSION_H
#define TEVSCRIPTEDSESSION_H

#include <QString>

class QWidget;
class TevMainWindow;

class TevScriptedSession
{
public:
    TevScriptedSession(TevMainWindow* window, const QString& outputDir) : m_window(window), m_dir(outputDir) {}

    // Runs the stages; 0 when every file was written, else 1 (the reason printed).
    int Run();

private:
    void Stage(const QString& text) const;
    void Trigger(const char* action) const;
    // Marks the tree rows of these names, which selects their shapes in the view.
    void Choose(const QStringList& names) const;
    QString Path(const QString& name) const;
    bool Grab(QWidget* widget, const QString& name) const;
    void DrawSolids() const;
    void CutAndSweep() const;
    bool WriteFiles() const;
    bool Analyse() const;

    TevMainWindow* m_window;
    QString m_dir;
};

#endif
