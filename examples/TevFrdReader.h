// TevFrdReader: node results of the solver's results file (".frd", fixed columns) read into
// vis_State objects.
//
// A result block opens with a " -4  NAME" record and ends with " -3"; its " -1" records carry
// the node id in columns 4 to 13 and one value per 12 columns behind it. The last "DISP" block
// (ux, uy, uz) becomes a node vector state and the last "STRESS" block (xx, yy, zz, xy, yz, zx,
// the state's tensor order) a node tensor state; the states are defined over nodes 1 to
// `numnode`, in double precision, and nodes the file does not list stay unset.
#ifndef TEVFRDREADER_H
#define TEVFRDREADER_H

#include <string>

struct vis_State;

class TevFrdReader
{
public:
    // Fills `displacement` (required) and `stress` (may be null). False with the reason when the
    // file cannot be read or has no displacement block; the states are then left undefined.
    static bool Read(const std::string& path, int numnode, vis_State* displacement, vis_State* stress,
                     std::string* error);
};

#endif
