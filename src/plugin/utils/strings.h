// Text, path and file utilities. Texts are bytes in the host's encoding; a failure is an empty result or false. Nothing
// here has state but the identifier generator, which any thread may use, and the list of folders to clean up at exit,
// which belongs to the loading thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Velmar {

class Strings {
public:
    // --- Encodings ---

    /// Standard alphabet with padding, no line breaks. Replaces `out`.
    static void Base64Encode(const std::string& in, std::string& out);
    /// Lenient: skips what is not in the alphabet, takes the URL form and missing padding too. Replaces `out`.
    static void Base64Decode(const std::string& in, std::string& out);
    /// `text` between double quotes, with escapes for all that is not printable ASCII.
    static std::string Bquote(const std::string& text);
    /// "<null>", without quotes, for a null pointer.
    static std::string Bquote(const char* text);
    /// As Bquote, but bytes of 128 and above stand as they are.
    static std::string Uquote(const std::string& text);
    static std::string Uquote(const char* text);
    /// Lower-case hexadecimal, filled with zeros on the left to at least `width` digits. A negative number shows its
    /// two's complement.
    template <typename T>
    requires std::is_integral_v<T>
    static std::string Hex(T value, std::size_t width) {
        return HexDigits(static_cast<std::make_unsigned_t<T>>(value), width);
    }
    /// Two digits for each byte with one blank between; "<null>" for a null pointer, "<empty>" for no bytes.
    static std::string Hexdump(const void* data, std::size_t size);

    // --- Time and identifiers ---

    /// Now, in UTC: "2026-11-13 22:52:10.123".
    static std::string Timestamp();
    /// 36 characters of random lower-case hexadecimal in the shape 8-4-4-4-12. From any thread.
    static std::string RandomUuidString();

    // --- Plain text ---

    /// The number that the text starts with, in `base`, saturated at the type's limits; 0 if there is none.
    static std::int64_t Str2int(const std::string& text, int base);
    static std::uint64_t Str2uint(const std::string& text, int base);
    /// Takes the characters of `chars` away from both ends, from the start, from the end.
    static std::string Trim(const std::string& text, const std::string& chars);
    static std::string TrimLeft(const std::string& text, const std::string& chars);
    static std::string TrimRight(const std::string& text, const std::string& chars);
    static std::string UpperCase(std::string text);
    static std::string LowerCase(std::string text);
    /// Upper case for the first letter of each run of letters, lower case for the others: "ab_CD" is "Ab_Cd".
    static std::string TitleCase(std::string text);
    /// The tokens between runs of delimiters, none of them empty. No delimiters means tab, newline, form feed, return
    /// and blank.
    static std::vector<std::string> Split(const std::string& text, const std::string& delimiters);
    /// Replaces each `from`, left to right, without looking again at what was put in. An empty `from` changes nothing.
    static std::string ReplaceAll(const std::string& text, const std::string& from, const std::string& to);

    // --- Folders of the plug-in. None of these makes the folder ---

    /// HOME, or the password entry's home folder when HOME is unset or empty; empty when there is neither.
    static std::string GetUserHome();
    /// Home and "/Documents".
    static std::string GetMyDocumentsPath();
    // These four end in "/".
    static std::string GetVelmarAssetsPath();
    static std::string GetCustomTexturesPath();
    static std::string GetPreviewTexturesPath();
    static std::string GetWorkingTexturesPath();
    /// Folder of the running program.
    static std::string GetExtensionPath();

    // --- Paths ---

    /// Joins two paths; `b` alone when `a` is empty or `b` starts at the root. Both separators count.
    static std::string MakePath(const std::string& a, const std::string& b);
    /// The path without links and dots; the path as given when it does not exist.
    static std::string MakeCanonical(const std::string& path);
    /// The text before the last "/", trailing ones not counted. A bare file name is its own folder.
    static std::string FolderFromFile(const std::string& path);
    /// Folder with its separator, and file. Both separators count.
    static std::pair<std::string, std::string> SplitPath(const std::string& path);
    /// Name of the file of `path`, and its ending with the dot. A name that only starts with a dot has no ending.
    static std::pair<std::string, std::string> SplitFile(const std::string& path);
    /// The text after the last ":", "/" or backslash.
    static std::string UnqualifyName(const std::string& name);
    /// Cuts a leading run of separators to its last two.
    static void CleanFilePath(std::string& path);

    // --- Files ---

    /// mkdir with mode 0777; `with_parent` makes a missing parent first, one level. 0 for done, -1 for not.
    static int MakeFolder(const std::string& path, bool with_parent);
    /// The entries of a folder as paths, in no order, without "." and ".."; empty on failure.
    static std::vector<std::string> DirectoryList(const std::string& path);
    /// Has the folder emptied at the exit of the process. A folder is registered once.
    static void RegisterFolderForCleanup(const std::string& path);
    /// Removes the files and the empty folders in `path`. Errors are ignored.
    static void CleanUpFolder(const std::string& path);
    /// Whether the path opens for reading; a folder does.
    static bool FileExists(const std::string& path);
    /// Reads a whole file. False if it does not open; one that opens and cannot be read, a folder, is empty.
    static bool LoadFileContent(const std::string& path, std::string& out);
    /// Writes a whole file. False if it does not open; errors of the writing itself are not looked at.
    static bool SaveFileContent(const std::string& path, const std::string& content);

private:
    static std::string HexDigits(std::uint64_t value, std::size_t width);
};

}  // namespace Velmar
