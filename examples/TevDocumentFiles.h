// TevDocumentFiles: the host's file commands on the document. The document's own files (OCAF
// binary or XML) go through ShapeDocMgr; STEP and IGES go through OCCT's data-exchange toolkits:
// an import adds every shape the file holds to the document in one undoable transaction, named
// after its type as drawn shapes are; an export writes all of the document's shapes.
// Every function returns false with a reason in `error` and leaves the document as it was.
#ifndef TEVDOCUMENTFILES_H
#define TEVDOCUMENTFILES_H

#include <QString>

class TevDocumentFiles
{
public:
    enum Format { Step, Iges };

    // The format a file name's suffix stands for: Iges for ".igs"/".iges", else Step.
    static Format FormatOf(const QString& path);

    // `added` (may be null) gets the number of shapes added.
    static bool Import(const QString& path, Format format, int* added, QString* error);
    static bool Export(const QString& path, Format format, QString* error);
};

#endif
