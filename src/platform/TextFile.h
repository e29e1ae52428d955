#pragma once

#include <cstdio>
#include <string>

namespace kelo {

// A text file read line by line. Each line comes without its line ending; `ReadLineCrLf` gives
// it with "\r\n", as the command reader needs.
class CTextReader {
public:
    CTextReader() = default;
    explicit CTextReader(const std::string& path) { Open(path); }
    CTextReader(const CTextReader&) = delete;
    CTextReader& operator=(const CTextReader&) = delete;
    ~CTextReader() { Close(); }

    bool Open(const std::string& path);
    bool IsOpen() const { return m_file != nullptr; }
    void Close();
    // False at the end of the file.
    bool ReadLine(std::string& line);
    bool ReadLineCrLf(std::string& line);

private:
    std::FILE* m_file = nullptr;
};

// A text file written as it goes; every write is flushed so that a killed run keeps what it wrote.
class CTextWriter {
public:
    CTextWriter() = default;
    CTextWriter(const CTextWriter&) = delete;
    CTextWriter& operator=(const CTextWriter&) = delete;
    ~CTextWriter() { Close(); }

    // `append` keeps what the file holds; otherwise it is emptied.
    bool Open(const std::string& path, bool append);
    bool IsOpen() const { return m_file != nullptr; }
    void Close();
    bool Write(const std::string& text);

private:
    std::FILE* m_file = nullptr;
};

bool ReadWholeFile(const std::string& path, std::string& text);
bool FileExists(const std::string& path);
// A relative `path` is taken from the directory of `baseFile`; an absolute one stands as it is.
std::string ResolvePath(const std::string& baseFile, const std::string& path);
// The path without its file name ("" for a bare name).
std::string DirectoryOf(const std::string& path);
// The path cut at the first "." of its file name; dots in directory names do not count.
std::string StemOf(const std::string& path);

} // namespace kelo
