#include "TevMeshFormats.h"

const std::vector<TevMeshFormat>& TevMeshFormats::All()
{
    static const std::vector<TevMeshFormat> formats = {
        {18, "NASTRAN bulk data", "bdf"},
        {13, "ABAQUS input", "inp"},
        {22, "ANSYS commands", "ans"},
        {25, "LS-DYNA keywords", "k"},
        {20, "PATRAN neutral", "out"},
        {14, "Universal file", "unv"},
        {11, "STL facets", "stl"},
        {41, "OBJ surface", "obj"},
        {-1, "Connectivity, native text", "cnt"},
        {-2, "Connectivity, native binary", "cnb"},
        {-10, "Points and faces pair", ""},
        {-16, "Summary (appended)", "txt"},
        {-17, "Listing (appended)", "lst"},
    };
    return formats;
}

const TevMeshFormat* TevMeshFormats::Find(int code)
{
    for (const TevMeshFormat& format : All())
        if (format.code == code) return &format;
    return nullptr;
}
