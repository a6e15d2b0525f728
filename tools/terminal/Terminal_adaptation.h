#ifndef TOOLS_TERMINAL_TERMINAL_ADAPTATION_H
#define TOOLS_TERMINAL_TERMINAL_ADAPTATION_H

#include <QStringList>

#include "tools/pool/Object_pool.h"
#include "tools/terminal/Scaling.h"
#include "tools/terminal/Terminal.h"

namespace VT {

// Makes a pool one the terminal it is meant for can load and show as designed, before it is
// serialised.
//
// Why the host does this itself instead of handing the terminal's limits to the library: the
// library's reductions are a contract with hosts that rely on them exactly as they are, and
// for a terminal some of them give bytes it would misread:
// - towards a monochrome terminal every colour becomes index 2 (text and background alike),
//   and a picture sends no pixel bytes at all while its count still announces them, so every
//   object after it is read from the wrong place;
// - towards a 16-colour terminal a picture stored with 4-bit pixels is read as 8-bit pixels;
// - a font size the terminal lacks is looked up with bit k of the small-font mask taken as
//   size k + 1 (the terminal means size k), ends as size 0 when no smaller size is there, and
//   a proportional font's height is ANDed with the style mask;
// - a colour map keeps its 256 entries on a terminal of 16 colours.
// So the host changes the objects themselves, with the rules of tools/terminal (one colour
// rule, Colour_reduction.h; one font rule, Font_sizes.h), and then serialises with limits
// under which the library writes every stored byte as it is (serialisation_limits()).
// What cannot be made right is refused with a problem naming the object.
class Terminal_adaptation
{
public:
    struct Options
    {
        Design_size design;     // the screen the pool was designed for: scaled to the terminal's
        bool downgrade = false; // replace what the terminal's VT version lacks where it can be
    };

    // All of the steps below, in order, for `terminal`: scaling (when a design size is given),
    // fonts, the VT version, pictures, colour maps, colours, macros; then the pool's
    // serialisation limits, negotiated version and supported types. Problems are what makes the pool unusable
    // for the terminal (false); warnings what the terminal gets differently from the design.
    // Objects read from pool bytes need their areas first (Scaling::propagate_areas) when the
    // pool is scaled.
    static bool adapt(Object_pool& pool, const Terminal& terminal, const Options& options, QStringList& problems,
                      QStringList& warnings);

    // The limits the adapted pool is serialised with: 256 colours and every font size and
    // style, under which the library writes colours, fonts and picture data as they stand.
    static Serialisation_limits serialisation_limits();

    // Objects of a type the terminal's VT version lacks, and attribute values only a later
    // version understands (the check's table of them), are problems naming object, attribute
    // and the version that has them. With `downgrade`, what an older form can stand for is
    // replaced, with one warning per object: a PNG object becomes a picture graphic of its
    // image (8-bit pixels, then reduced as every picture is), such values lose their bits.
    static void fit_version(Object_pool& pool, const Terminal& terminal, bool downgrade, QStringList& problems,
                            QStringList& warnings);
    // Each font attributes object: a fixed size scaled with the area it is used in (the
    // largest size whose cell fits the scaled cell), then the nearest size the terminal has;
    // a proportional font keeps its (scaled) height where the terminal draws proportional
    // fonts and becomes the fixed size of its height where it does not; styles the terminal
    // lacks are dropped. A fixed size above 14 is a problem.
    static void fit_fonts(Object_pool& pool, const Terminal& terminal, const Scaling::Ratio& mask,
                          const Scaling::Ratio& key, QStringList& problems);
    // Picture graphics with more colours than the terminal are re-coded with its pixel format
    // (1 bit for 2 colours, 4 bits for 16), each pixel the terminal's colour for it, run-length
    // coded when they were and when that is shorter. A transparent picture keeps exactly its
    // transparent pixels: no opaque pixel takes the transparency colour (it takes the nearest
    // other colour), and in black and white the transparency colour is the one fewer opaque
    // pixels have. PNG objects are re-encoded with the terminal's colours. What the library
    // says of a picture while decoding it is a warning naming the picture.
    static void reduce_pictures(Object_pool& pool, const Terminal& terminal, QStringList& problems,
                                QStringList& warnings);
    // Each colour map gets as many entries as the terminal has colours: entry i the terminal's
    // colour for what entry i held (or for i, where the map was shorter).
    static void reduce_colour_maps(Object_pool& pool, const Terminal& terminal);
    // Every colour attribute becomes the terminal's colour for it.
    static void reduce_colours(Object_pool& pool, const Terminal& terminal);
    // The commands of macros that set colours and fonts (Change Background Colour, Change
    // Font, Line and Fill Attributes, Change Attribute of a colour, the graphics context's
    // colours) set the terminal's colours and the fonts fit_fonts would give.
    static void adapt_macros(Object_pool& pool, const Terminal& terminal, const Scaling::Ratio& mask,
                             const Scaling::Ratio& key, QStringList& problems);
};

}

#endif
