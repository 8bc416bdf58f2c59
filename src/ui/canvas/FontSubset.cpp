#include "FontSubset.h"

#include <hb-subset.h>

#include <array>
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

/// A table of the font; the blob owns its bytes.
hb_blob_t *tableOf(hb_face_t *, hb_tag_t tag, void *font)
{
    std::array<char, 5> name{};
    hb_tag_to_string(tag, name.data());
    auto table =
        std::make_unique<QByteArray>(static_cast<QRawFont *>(font)->fontTable(name.data()));
    if (table->isEmpty())
        return hb_blob_get_empty();
    QByteArray *const owned = table.release();
    return hb_blob_create(owned->constData(), static_cast<unsigned>(owned->size()),
                          HB_MEMORY_MODE_READONLY, owned,
                          [](void *bytes) { delete static_cast<QByteArray *>(bytes); });
}

} // namespace

QByteArray fontSubset(const QRawFont &font, const std::set<char32_t> &characters)
{
    if (font.fontTable("glyf").isEmpty() && font.fontTable("CFF ").isEmpty())
        return {};
    QRawFont source = font;
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
