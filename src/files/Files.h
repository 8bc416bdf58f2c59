#pragma once
/// @file
/// Model files: reading, writing, and whether the model differs from its file; report files.
///
/// What stands in a model file is the matter of `ModelText.h`. Paths and texts are UTF-8.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace veskora {

/// Reads the model file @p path; when it is empty the user is asked, and the name chosen stands in
/// it afterwards.
///
/// On success the model, the view and the settings are the file's, `Onoma_Arxeiou` and the caption
/// name it, and the zoom history begins anew. A wrong banner is reported and changes nothing. Any
/// other failure is reported and leaves an empty model without a name, and settings and view as
/// they were. Painting is up to the caller.
/// @return whether the model is that of the file now
bool Anagnosi_Arxeiou(std::string &path);

/// Reads the model from @p journal, a copy of it that an ended process has left. It keeps its own
/// file @p model, so that the next save goes there, unless that was written after the journal: then
/// the model has no name, and the next save asks for one. An empty @p model is none.
/// A failure is reported as by `Anagnosi_Arxeiou`.
/// @param known  sum of the file as the ended process knew it, none where that is not told
/// @return whether the model is that of the journal now
bool openJournal(const std::string &journal, const std::string &model,
                 std::optional<std::uint64_t> known = {});

/// Empties the model, which then has no name; view and settings stay.
void startEmptyModel();

/// The model has no file.
void forgetModelName();

/// Writes the model to @p path; when it is empty the user is asked, and the name chosen stands in
/// it once the file is written. The file is replaced as a whole or not at all.
///
/// @param quiet  whether nothing is said: caption, `Onoma_Arxeiou` and log are left alone
/// Otherwise a failure is reported; the model, @p path and `Onoma_Arxeiou` stay, also when @p path
/// is `Onoma_Arxeiou` itself.
/// @return whether the file was written
bool Apothikefsi_Arxeiou(std::string &path, bool quiet);

/// Whether @p path holds, byte for byte, what the model would write. Says nothing to the user.
bool isModelFile(const std::string &path);

/// Sum of what another program has put into the model's file since this one read or wrote it, 0
/// where it cannot be read any more. None where nothing that is not the model's own would be lost
/// by a save: the file has the same bytes as then, or those that a save would write, or is gone.
/// Says nothing.
std::optional<std::uint64_t> sumOfForeignChange();

/// Whether the file @p path begins as a model's does, whatever it is called. Says nothing.
bool holdsModel(const std::string &path);

/// Whether the model in memory would write a file equal to the one named by `Onoma_Arxeiou`: it is
/// written to a scratch file and the two are compared item by item, view state included. Where no
/// scratch file can be written the answer is no.
bool Idio_Me_To_Arxeio();

/// Shows a save dialog until the user cancels or a name is settled. A name without @p extension
/// (compared exactly) gets it, with a second overwrite question when that names an existing file.
/// @return the path, empty when cancelled
std::string askSavePath(const std::string &filter, const std::string &proposed,
                        const std::string &extension);
/// The same where there are several. @p proposed has the first: a name that still has it, or none
/// of them, gets that of the filter chosen.
std::string askSavePath(const std::string &filter, const std::string &proposed,
                        const std::vector<std::string> &extensions);

/// The same of a model to be saved.
std::string askModelPath();

/// Writes @p content to @p path; a failure is reported.
/// @return whether it was written
bool writeFileOrTell(const std::string &path, const std::string &content);

/// Writes @p content, with @p extension, to a file that the user is asked for by @p filter. The
/// name of the model file @p path is proposed, with that extension for its own. A failure is
/// reported.
/// @return the path written, empty where nothing was
std::string writeAskedFile(const std::string &content, const std::string &filter,
                           const std::string &path, const std::string &extension);

/// The same of a content that takes its time: @p make is called when the name is settled, and what
/// is empty is not written. Behind the name of the model stands @p suffix.
std::string writeAskedFile(const std::function<std::string()> &make, const std::string &filter,
                           const std::string &path, const std::string &suffix,
                           const std::string &extension);

/// Writes the report `Anafora` to a text file that the user is asked for. The name of the model
/// file @p path is proposed, with .txt for its extension. A failure is reported.
void Apothikefsi_Anaforas(const std::string &path);
/// The same with the text @p report; behind the name of the model stands @p suffix.
/// @return the path written, empty where none was
std::string saveReport(const std::string &report, const std::string &path,
                       const std::string &suffix);
/// The same with the comma-separated values @p table.
std::string saveTable(const std::string &table, const std::string &path, const std::string &suffix);

} // namespace veskora
