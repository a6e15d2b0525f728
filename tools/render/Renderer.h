#ifndef TOOLS_RENDER_RENDERER_H
#define TOOLS_RENDER_RENDERER_H

#include <QImage>
#include <QVector>
#include <functional>
#include <vector>

#include "tools/render/Canvas.h"
#include "tools/render/Font.h"
#include "tools/terminal/Terminal.h"

namespace VT {

class VT_obj;
class Object_pool;

namespace Render {

// Draws the objects of a pool as a terminal of the given description shows them: a mask with
// its soft keys, or any single object at its own size. It reads the objects only through their
// public getters and reaches other objects by id through a look-up, so a host can use it over
// its own pool container. Flashing objects draw in their steady state; nothing that needs an
// operator or other working sets (input focus, assignments) is shown.
//
// Any pool can be drawn: references to missing objects draw nothing, an object met again while
// it is being drawn (a cycle) is skipped, nesting stops at a fixed depth, and a drawing stops
// after a fixed amount of work (see truncated()).
class Renderer
{
public:
    typedef std::function<VT_obj*(uint16_t id)> Lookup;

    // `working_set` is the pool's working set (auxiliary designators may show it); may be null.
    Renderer(const Terminal& terminal, Lookup lookup, VT_obj* working_set = nullptr);
    // Over a pool container, which must outlive the renderer.
    Renderer(const Terminal& terminal, const Object_pool& pool);

    // The screen for a data or alarm mask: the mask at the data-mask size with the soft-key
    // column of its soft-key mask beside it. Other objects are drawn as render_object does.
    Canvas render_screen(VT_obj* mask);
    // `obj` alone at its own size (object_size).
    Canvas render_object(VT_obj* obj);
    // The size an object is drawn at on its own; 0 x 0 for objects that draw nothing
    // (variables, attributes, macros, ...).
    Rect object_size(VT_obj* obj);
    // Whether the last drawing stopped early because the pool asked for too much work (or for
    // a picture larger than the size limit).
    bool truncated() const { return cut_short; }
    // Drawings are at most this many pixels across and down (default 8192).
    void set_size_limit(int pixels) { size_limit = pixels; }

    // The soft-key column beside the data mask: its width, and the margin around each key.
    int key_column_width() const;
    static const int KEY_MARGIN = 4;

    // What a pool holds for a user to look at.
    static VT_obj* working_set_of(const Object_pool& pool);
    // The working set's active mask, or null.
    static VT_obj* active_mask(const Object_pool& pool);
    // Data, alarm and window masks in pool order.
    static QVector<VT_obj*> masks(const Object_pool& pool);

private:
    Canvas start(int width, int height, uint32_t colour);
    uint32_t colour(uint8_t index) const;
    VT_obj* find(uint16_t id) const;
    bool enter(VT_obj* obj);
    void leave();

    // Draws `obj` with its top left at (x, y), inside the canvas's present clip.
    void draw(VT_obj* obj, int x, int y);
    void draw_in(VT_obj* obj, const Rect& area); // draw at area's corner, clipped to it
    // The placed children of `parent`, from the corner of `area` and clipped to it.
    template <class T>
    void draw_placed_in(const T& parent, const Rect& area);
    // The same over the area filled with the parent's background colour.
    template <class T>
    void draw_panel(const T& parent, const Rect& area);
    void draw_soft_keys(VT_obj* soft_key_mask, int x, int y, int height);
    void draw_key_slot(VT_obj* key, int x, int y);

    void draw_button(VT_obj* obj, int x, int y);
    void draw_input_boolean(VT_obj* obj, int x, int y);
    void draw_string(VT_obj* obj, int x, int y);
    void draw_number(VT_obj* obj, int x, int y);
    void draw_list(VT_obj* obj, int x, int y);
    void draw_line(VT_obj* obj, int x, int y);
    void draw_rectangle(VT_obj* obj, int x, int y);
    void draw_ellipse(VT_obj* obj, int x, int y);
    void draw_polygon(VT_obj* obj, int x, int y);
    void draw_meter(VT_obj* obj, int x, int y);
    void draw_linear_bar_graph(VT_obj* obj, int x, int y);
    void draw_arched_bar_graph(VT_obj* obj, int x, int y);
    void draw_picture(VT_obj* obj, int x, int y);
    void draw_png(VT_obj* obj, int x, int y);
    // A graphic data object's image as a scaled graphic places it in its box.
    void draw_scaled_graphic(VT_obj* obj, int x, int y);
    // An image scaled to the rectangle (nearest pixel), each pixel blended as the terminal's
    // colours allow.
    void draw_image(const QImage& image, const Rect& to);
    void draw_window_mask(VT_obj* obj, int x, int y);
    void draw_designator_pointer(VT_obj* obj, int x, int y);

    Font font(uint16_t font_attributes) const;
    uint32_t number_value(uint16_t variable, uint32_t own) const;
    // Fills the shape that `paint` draws (in the colour it is given) as `fill` says; `box` holds it.
    void fill_shape(uint16_t fill_attributes, uint16_t line_attributes, const Rect& box,
                    const std::function<void(uint32_t)>& paint);
    struct Pen
    {
        uint32_t colour;
        int width;
        uint16_t art;
    };
    Pen pen(uint16_t line_attributes) const;

    Terminal terminal;
    Lookup lookup;
    VT_obj* working_set;
    Canvas* canvas = nullptr;
    std::vector<VT_obj*> stack; // objects being drawn, outermost first
    uint32_t palette[256];
    int size_limit = 8192;
    int draws = 0;
    uint64_t pixel_budget = 0;
    bool cut_short = false;
};

}
}

#endif
