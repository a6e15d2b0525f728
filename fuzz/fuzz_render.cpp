// Drawing: pool files read into objects, then every mask and some objects drawn for a terminal
// whose colours the input's length picks. Whatever the pool holds, the drawing ends, stays in
// its canvas and comes out the same twice.
#include <cstddef>
#include <cstdint>

#include "fuzz/fuzz_support.h"
#include "tools/pool/Pool_file.h"
#include "tools/render/Png_writer.h"
#include "tools/render/Renderer.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::quiet();
    if (size > (256u << 10))
        return 0;
    VT::Object_pool pool;
    QString error;
    const QByteArray input = QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
    // The input's length chooses the form of version 6 objects it is read in.
    pool.set_vt6_objects(size % 2 ? VT::Vt6_objects::iso : VT::Vt6_objects::legacy);
    if (!VT::Pool_file::read(input, pool, &error))
        return 0;

    VT::Terminal terminal;
    static const int depths[] = {256, 16, 2};
    terminal.colours = depths[size % 3];
    terminal.physical_soft_keys = uint8_t(size % 7);
    VT::Render::Renderer renderer(terminal, pool);
    renderer.set_size_limit(1024);

    int masks = 0;
    for (VT::VT_obj* mask : VT::Render::Renderer::masks(pool)) {
        if (++masks > 4)
            break;
        const VT::Render::Canvas c = renderer.render_screen(mask);
        FUZZ_CHECK(c.width() >= 1 && c.width() <= 1024 && c.height() >= 1 && c.height() <= 1024);
        if (masks == 1) {
            const QByteArray png = VT::Render::encode_png(c);
            FUZZ_CHECK(VT::Render::encode_png(renderer.render_screen(mask)) == png);
        }
    }
    int objects = 0;
    for (VT::VT_obj* obj : pool.objects()) {
        if (renderer.object_size(obj).empty())
            continue;
        if (++objects > 8)
            break;
        renderer.render_object(obj);
    }
    return 0;
}
