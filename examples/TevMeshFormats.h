// TevMeshFormats: the mesh file forms the host offers for export, one row per vis_ConnectWrite
// code that the library builds so far. A writer that the library gains is one more row here.
#ifndef TEVMESHFORMATS_H
#define TEVMESHFORMATS_H

#include <QString>

#include <vector>

struct TevMeshFormat {
    int code;        // the vis_ConnectWrite code
    QString name;    // what the user reads
    QString suffix;  // the file name suffix offered, without the dot; empty for a path stem
};

class TevMeshFormats
{
public:
    static const std::vector<TevMeshFormat>& All();
    // The row of a code; null for a code without a row.
    static const TevMeshFormat* Find(int code);
};

#endif
