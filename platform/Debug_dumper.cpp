#include "platform/Debug_dumper.h"

namespace Debug {

void Text_dumper::indent()
{
    for (int i = 0; i < depth; ++i)
        os << "  ";
}

int Text_dumper::open_group(const char* name)
{
    indent();
    os << (name ? name : "") << " {\n";
    ++depth;
    return 1;
}

void Text_dumper::close_group(const char*)
{
    if (depth > 0)
        --depth;
    indent();
    os << "}\n";
}

void Text_dumper::write(const char* key, const char* value)
{
    indent();
    os << (key ? key : "") << ": " << (value ? value : "") << "\n";
}

}
