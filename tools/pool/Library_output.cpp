#include "tools/pool/Library_output.h"

#include <QRegularExpression>
#include <iostream>
#include <streambuf>
#include <string>

#include "platform/Debug_print.h"

namespace VT {

namespace {

// Collects characters into lines. Lines that announce the end of the process are handed on
// to `through` at once (with the context), since the process may end before the tool looks.
class Line_buffer : public std::streambuf
{
public:
    QVector<Library_output::Line> lines;
    std::function<QString()> context;
    std::streambuf* through = nullptr;
    bool keep = true;
    bool chatter = false;

    void add(const char* s, size_t n)
    {
        if (!keep)
            return;
        for (size_t i = 0; i < n; ++i) {
            if (s[i] == '\n')
                end_line();
            else if (s[i] != '\r')
                pending.push_back(s[i]);
        }
    }
    void end_line()
    {
        QString text = QString::fromLocal8Bit(pending.data(), int(pending.size()));
        pending.clear();
        const QString who = context ? context() : QString();
        if (text.startsWith(QLatin1String("FATAL ERROR!")) && through) {
            const std::string shown = (who.isEmpty() ? text : who + QStringLiteral(": ") + text).toStdString() + "\n";
            through->sputn(shown.data(), std::streamsize(shown.size()));
            through->pubsync();
        }
        lines.append({who, text, chatter});
    }
    void finish()
    {
        if (!pending.empty())
            end_line();
    }
    bool empty() const { return lines.isEmpty() && pending.empty(); }
    // Forgets what was collected, keeping the storage.
    void reset()
    {
        lines.clear();
        pending.clear();
        context = nullptr;
        through = nullptr;
    }

protected:
    int_type overflow(int_type c) override
    {
        if (c != traits_type::eof()) {
            const char ch = traits_type::to_char_type(c);
            add(&ch, 1);
        }
        return traits_type::not_eof(c);
    }
    std::streamsize xsputn(const char* s, std::streamsize n) override
    {
        add(s, size_t(n));
        return n;
    }

private:
    std::string pending;
};

}

struct Library_output::State
{
    Line_buffer buffer;
    Line_buffer chatter;
    std::streambuf* old_out = nullptr;
    std::streambuf* old_err = nullptr;
    Debug_print::sink_t old_sink;
};

namespace {

// A capture is begun and ended around every pool read: the state of the last one ended on a
// thread waits there for the next, so that a short capture allocates nothing.
thread_local std::unique_ptr<Library_output::State> spare_state;

}

Library_output::Library_output(bool keep_chatter)
    : state(spare_state ? std::move(spare_state) : std::make_unique<State>())
{
    state->old_sink = Debug_print::get_sink();
    Line_buffer* b = &state->buffer;
    Debug_print::set_sink([b](const std::string& s) { b->add(s.data(), s.size()); });
    state->chatter.keep = keep_chatter;
    state->chatter.chatter = true;
    state->old_out = std::cout.rdbuf(&state->chatter);
    state->old_err = std::cerr.rdbuf(b);
    b->through = state->old_err;
}

Library_output::~Library_output()
{
    // What was printed under the capture and never taken is dropped with it; the streams get
    // back exactly the buffers they had, none included.
    std::cout.rdbuf(state->old_out);
    std::cerr.rdbuf(state->old_err);
    Debug_print::set_sink(std::move(state->old_sink));
    if (!spare_state) {
        state->buffer.reset();
        state->chatter.reset();
        state->old_sink = nullptr;
        spare_state = std::move(state);
    }
}

void Library_output::set_context(std::function<QString()> context)
{
    for (Line_buffer* b : {&state->buffer, &state->chatter}) {
        b->finish();
        b->context = context;
    }
}

bool Library_output::any() const
{
    return !state->buffer.empty() || !state->chatter.empty();
}

QVector<Library_output::Line> Library_output::take()
{
    QVector<Line> out;
    for (Line_buffer* b : {&state->buffer, &state->chatter}) {
        b->finish();
        out += b->lines;
        b->lines.clear();
    }
    return out;
}

QString Library_output::clamp_detail(const QString& text)
{
    // "WARNING: attempt to set 'options' to 200, maximum is 7"
    static const QRegularExpression clamp(
        QStringLiteral("^WARNING: attempt to set '([^']*)' to (-?[0-9.e+-]+), (maximum|minimum) is (-?[0-9.e+-]+)$"));
    const QRegularExpressionMatch m = clamp.match(text);
    if (!m.hasMatch())
        return QString();
    return QStringLiteral("'%1' %2 is %3 its %4 %5, so %5 was kept")
        .arg(m.captured(1), m.captured(2), m.captured(3) == QLatin1String("maximum") ? "above" : "below",
             m.captured(3), m.captured(4));
}

bool Library_output::restated_by_tool(const QString& text)
{
    static const char* const restated[] = {
        "refers to non-existant object", // the description reports the unknown name
        "Could not parse colour",        // ... and the unknown colour
        "Deser:",                        // the reader says which object did not read, and where
        "Zero buffer size",              // the pictures command names pictures it cannot decode
    };
    for (const char* r : restated)
        if (text.contains(QLatin1String(r)))
            return true;
    return false;
}

QString Library_output::format(const Line& line)
{
    return line.context.isEmpty() ? line.text : line.context + QStringLiteral(": ") + line.text;
}

}
