#include "platform/TextFile.h"

#include <sys/stat.h>

namespace kelo {

bool CTextReader::Open(const std::string& path) {
    Close();
    m_file = std::fopen(path.c_str(), "rb");
    if (!m_file) return false;
    struct stat st {};
    if (fstat(fileno(m_file), &st) != 0 || !S_ISREG(st.st_mode)) {
        Close();
        return false;
    }
    return true;
}

void CTextReader::Close() {
    if (m_file) std::fclose(m_file);
    m_file = nullptr;
}

bool CTextReader::ReadLine(std::string& line) {
    line.clear();
    if (!m_file) return false;
    int c = 0;
    bool any = false;
    while ((c = std::fgetc(m_file)) != EOF) {
        any = true;
        if (c == '\n') break;
        line.push_back(static_cast<char>(c));
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return any;
}

bool CTextReader::ReadLineCrLf(std::string& line) {
    if (!ReadLine(line)) return false;
    line += "\r\n";
    return true;
}

bool CTextWriter::Open(const std::string& path, bool append) {
    Close();
    m_file = std::fopen(path.c_str(), append ? "ab" : "wb");
    return m_file != nullptr;
}

void CTextWriter::Close() {
    if (m_file) std::fclose(m_file);
    m_file = nullptr;
}

bool CTextWriter::Write(const std::string& text) {
    if (!m_file) return false;
    const bool ok = std::fwrite(text.data(), 1, text.size(), m_file) == text.size();
    std::fflush(m_file);
    return ok;
}

bool ReadWholeFile(const std::string& path, std::string& text) {
    text.clear();
    CTextReader reader;
    if (!reader.Open(path)) return false;
    std::string line;
    while (reader.ReadLineCrLf(line)) text += line;
    return true;
}

bool FileExists(const std::string& path) {
    struct stat st {};
    return stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

std::string DirectoryOf(const std::string& path) {
    const auto slash = path.find_last_of('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string ResolvePath(const std::string& baseFile, const std::string& path) {
    if (path.empty() || path[0] == '/') return path;
    return DirectoryOf(baseFile) + path;
}

std::string StemOf(const std::string& path) {
    const std::size_t nameStart = DirectoryOf(path).size();
    const auto dot = path.find('.', nameStart);
    return dot == std::string::npos ? path : path.substr(0, dot);
}

} // namespace kelo
