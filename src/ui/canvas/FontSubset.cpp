#include "FontSubset.h"

#include <hb-subset.h>

#include <array>
#include <map>
#include <memory>

namespace veskora {

namespace {

template <auto destroy>
struct Destroyer
{
    template <typename T>
    void operator()(T *object) const
    {
        destroy(object);
    }
};
using Face = std::unique_ptr<hb_face_t, Destroyer<hb_face_destroy>>;
using Input = std::unique_ptr<hb_subset_input_t, Destroyer<hb_subset_input_destroy>>;
using Blob = std::unique_ptr<hb_blob_t, Destroyer<hb_blob_destroy>>;

/// A font whose tables stay where they are: some of those that are only copied are read once more
/// after they have been given back.
struct Source
{
    const QRawFont &font;
    std::map<hb_tag_t, QByteArray> tables = {};
};

hb_blob_t *tableOf(hb_face_t *, hb_tag_t tag, void *data)
{
    auto &[font, tables] = *static_cast<Source *>(data);
    std::array<char, 5> name{};
    hb_tag_to_string(tag, name.data());
    const auto [place, isNew] = tables.try_emplace(tag);
    if (isNew)
        place->second = font.fontTable(name.data());
    return hb_blob_create(place->second.constData(), static_cast<unsigned>(place->second.size()),
                          HB_MEMORY_MODE_READONLY, nullptr, nullptr);
}

} // namespace

QByteArray fontSubset(const QRawFont &font, const std::set<char32_t> &characters)
{
    if (font.fontTable("glyf").isEmpty() && font.fontTable("CFF ").isEmpty())
        return {};
    Source source{font};
    const Face whole(hb_face_create_for_tables(tableOf, &source, nullptr));
    const Input wanted(hb_subset_input_create_or_fail());
    if (wanted == nullptr)
        return {};
    hb_subset_input_set_flags(wanted.get(), HB_SUBSET_FLAGS_NO_HINTING);
    for (const char32_t character : characters)
        hb_set_add(hb_subset_input_unicode_set(wanted.get()), character);
    const Face part(hb_subset_or_fail(whole.get(), wanted.get()));
    if (part == nullptr)
        return {};
    const Blob file(hb_face_reference_blob(part.get()));
    unsigned length = 0;
    const char *const bytes = hb_blob_get_data(file.get(), &length);
    return {bytes, static_cast<qsizetype>(length)};
}

} // namespace veskora
