#pragma once

#include <string>
#include <vector>

namespace kelo {

// The words of the command language's diagnostics in Norwegian (language 1) and English
// (language 2, also used for any other language number). A message is one of the forms
// "%s\r\n", "%s %d %s\r\n", "%s %.3lf %s %d %s\r\n", "%s %.0lf %s %d %s\r\n", "'%s' %s\r\n" and
// "%s \"%s\"!\r\n", filled with words of the string table and the caller's arguments.

// Words of a key of the string table (keys 1000-1061, 1100-1102, 1151-1173, 1301-1347,
// 1401-1408, 1451-1513, 2000-2018, 2100-2102, 2300, 9999); "" for a key not in the table.
std::string GetString(int key, int language);

// 1 note (below 2000), 2 warning (2000-2999), 3 error (3000 and above).
int MessageSeverity(int number);

// The words of message `number` with the integer `n`, the real `x` and the `text` (may be null)
// put in, ending in "\r\n". A slot the message does not print, an empty word and a quoted text
// that is null drop out together with the blank before them. An unknown number gives the words
// of key 9999.
std::string ComposeMessage(int number, int n, double x, const std::string* text, int language);

// The numbers of all messages of the table, in ascending order.
const std::vector<int>& AllMessageNumbers();

} // namespace kelo
