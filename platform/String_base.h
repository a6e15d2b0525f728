#ifndef PLATFORM_STRING_BASE_H
#define PLATFORM_STRING_BASE_H

#include <string>

// Receiver of output-string text.
class String_base
{
public:
    virtual ~String_base() = default;
    virtual void set(const char* text, unsigned len) { value.assign(text ? text : "", text ? len : 0); }
    const std::string& get() const { return value; }

private:
    std::string value;
};

#endif
