#pragma once
/// @file
/// Language packs: the files `*.lng` in the folder `Languages` among those supplied with the
/// program.
///
/// A pack is UTF-8. Its first two items are a heading; then come pairs of a slot number and that
/// slot's text between quotation marks; the item END ends it. The English texts stand in the code:
/// `English.lng` is a template for translators and is never read.

#include <string>
#include <vector>

namespace veskora {

/// Makes the language of the per-user store the active one: sets `Glossa` and `Nai_Agglika` and
/// reads the pack. A text that the pack leaves out shows as empty; how many do is told once here.
/// A pack that is missing or damaged is told and dropped whole, and the program goes on in English;
/// the store keeps its language.
void Fortosi_Glossas();

/// The language of the per-user store, also where its pack could not be read.
std::string storedLanguage();

/// Stores the language of the next start and of the next `Fortosi_Glossas`.
void storeLanguage(const std::string &language);

/// The names of the packs that are there, in alphabetical order.
std::vector<std::string> languagePacks();

} // namespace veskora
