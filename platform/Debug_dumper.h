#ifndef PLATFORM_DEBUG_DUMPER_H
#define PLATFORM_DEBUG_DUMPER_H

#include <ostream>

namespace Debug {

// Grouped key/value sink for object dumps.
class Dumper
{
public:
    virtual ~Dumper() = default;
    // Returns zero when the group is not wanted; its content is then skipped.
    virtual int open_group(const char* name) = 0;
    virtual void close_group(const char* name) = 0;
    virtual void write(const char* key, const char* value) = 0;
};

// Writes the dump as an indented tree: "name {", "  key: value", "}".
class Text_dumper : public Dumper
{
public:
    explicit Text_dumper(std::ostream& os) : os(os) {}
    int open_group(const char* name) override;
    void close_group(const char* name) override;
    void write(const char* key, const char* value) override;

private:
    void indent();
    std::ostream& os;
    int depth = 0;
};

}

#endif
