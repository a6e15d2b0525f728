#ifndef TOOLS_DESCRIPTION_DESCRIPTION_H
#define TOOLS_DESCRIPTION_DESCRIPTION_H

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>
#include <memory>

#include "tools/description/Translations.h"
#include "tools/description/Xml_element.h"
#include "tools/pool/Library_output.h"
#include "tools/pool/Object_pool.h"

namespace VT {

// A pool description read from XML (format: docs/description-format.md) and built into the
// objects of an Object_pool through the library's set_by_spec.
class Description
{
public:
    Description();
    ~Description();
    Description(const Description&) = delete;
    Description& operator=(const Description&) = delete;

    // Parse errors land in problems(); false when the text is not a usable description.
    bool load_file(const QString& path);
    bool parse(const QByteArray& xml, const QString& file_name);

    // Creates every object, gives it its id and name, adds it to `pool`, reads its values and
    // resolves colours. False when any problem was found (see problems()); the pool then holds
    // whatever could be built.
    bool build(Object_pool& pool);

    // Problems found (each "file:line: text"); warnings do not make a build fail. What the
    // library says while building joins the warnings, naming the object, unless the
    // description reports it in its own words: such lines, and the library's chatter on
    // standard output (kept only when verbose), are library_notes().
    const QStringList& problems() const { return problem_list; }
    const QStringList& warnings() const { return warning_list; }
    const QStringList& library_notes() const { return note_list; }
    void set_verbose(bool on) { verbose = on; }
    // The language whose texts build() takes (one of those the description declares); empty
    // for the default language.
    void set_language(const QByteArray& code) { language = code; }
    // The description's languages and translations, once build() has read them.
    const Translations& translations() const { return texts; }
    // Values outside their attribute's range are problems; lenient, they are warnings and the
    // values are clamped into the range.
    void set_lenient(bool on) { lenient = on; }

    const QString& file_name() const { return file; }
    QString where(const Xml_element* e) const;

    // A Spec_node over an element of this description (the caller deletes it).
    Spec_node* make_node(Xml_element* e);
    Xml_element* root_element() { return root.get(); }

    // Used by the Spec_node implementation.
    void problem(const Xml_element* e, const QString& text);
    void warning(const Xml_element* e, const QString& text);
    uint16_t lookup_id(const QByteArray& name) const;
    VT_obj* find_object(const QByteArray& name) const;
    // The colour a name of a <colour> declaration stands for; false when unknown.
    bool declared_colour(const QByteArray& name, unsigned char& out) const;
    void note_unknown_reference(const Xml_element* e, const QByteArray& name);
    // The element of an object's own Spec_node, or null for nodes this description did not make.
    const Xml_element* element_of(Spec_node* node) const;

private:
    struct Colour
    {
        QByteArray value;
        const Xml_element* element;
    };

    void collect(Xml_element* e, int depth);
    void check_children(Xml_element* e, int depth);
    void assign_ids();
    void prepare_values(Xml_element* e);
    // The content of the file an element's "file" attribute names, relative to the description.
    bool read_file(Xml_element* e, QString& path, QByteArray& content);
    void prepare_picture(Xml_element* e, bool png);
    // A graphic data object's PNG file, sent as it is.
    void prepare_graphic_data(Xml_element* e);
    void read_values(Library_output& said);
    void resolve_colours();
    void justify();
    // Lists whose items the library leaves to the host (Description_lists.cpp).
    void read_host_lists();
    void read_code_planes(Xml_element* e, Attribute_list<Attribute_code_plane_rangeset>& list);
    void split_references(Xml_element* e, Attribute_list<Attribute_object_id>& refs,
                          Attribute_list<Attribute_object_placement>& places);
    void read_named_swaths(Xml_element* e, Attribute_list<Attribute_object_id>& swaths);
    uint16_t reference_id(Xml_element* item, const QByteArray& name);
    bool root_size(const char* key, int& w, int& h);
    // Gives the pool the form of version 6 objects <object_pool> names (vt6_objects), and
    // reports objects of a class of the other form.
    bool read_vt6_objects();
    void report_unused(const Xml_element* e);
    void read_translations();
    // Gives the objects their texts in the chosen language.
    void apply_language();
    QSet<QString> check_ranges(Xml_element* e);
    // Files what the library said since the last call under element `e` (the root when null),
    // about `who` (an object's label, or empty); clamps of the attributes named in `ranges`
    // were reported already.
    void hear(Library_output& said, const Xml_element* e, const QString& who,
              const QSet<QString>& ranges = QSet<QString>());

    QString file;
    QString base_dir;
    std::unique_ptr<Xml_element> root;
    QVector<Xml_element*> object_elements; // document order, inline objects after their owner
    QHash<QByteArray, Xml_element*> by_name;
    QHash<uint16_t, Xml_element*> by_id;
    QHash<QByteArray, Colour> colours;
    QSet<QPair<const Xml_element*, QByteArray>> unknown_seen;
    Object_pool* pool = nullptr;
    QStringList problem_list;
    QStringList warning_list;
    QStringList note_list;
    bool verbose = false;
    QByteArray language;
    Translations texts;
    bool lenient = false;
};

}

#endif
