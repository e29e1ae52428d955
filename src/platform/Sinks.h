#pragma once

#include <string>

namespace kelo {

// What the original showed in message boxes. In batch mode nothing is shown.
enum class MsgKind { Note, Warning, Error, Question };

class MessageSink {
public:
    virtual ~MessageSink() = default;
    // Shows a text; a question answers 1 for yes, 0 for no.
    virtual int Show(MsgKind kind, const std::string& text) = 0;
};

// Progress of a long run: a text, a position 0..100 and a cancel request polled between stages.
class ProgressSink {
public:
    virtual ~ProgressSink() = default;
    virtual void SetText(const std::string& text) = 0;
    virtual void SetPos(int percent) = 0;
    virtual bool IsCancelled() const { return false; }
};

// Batch mode: boxes are not shown, questions are answered yes.
class SilentMessageSink final : public MessageSink {
public:
    int Show(MsgKind, const std::string&) override { return 1; }
};

class SilentProgressSink final : public ProgressSink {
public:
    void SetText(const std::string&) override {}
    void SetPos(int) override {}
};

} // namespace kelo
