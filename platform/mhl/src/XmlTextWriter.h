#pragma once
// A streaming XML writer on Xerces' formatter: UTF-8, escaped as the formatter escapes, indented
// two spaces per level. Histories list thousands of files; no tree is built to write them.
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Mhl {

class XmlTextWriter {
public:
    using Attributes = std::vector<std::pair<std::string, std::string>>;

    XmlTextWriter();
    ~XmlTextWriter();

    void Open(std::string_view name, const Attributes& attributes = {});
    void Close();
    // An element holding only text.
    void Text(std::string_view name, std::string_view text, const Attributes& attributes = {});

    // The document so far; every element must be closed.
    std::string Finish();

private:
    void StartTag(std::string_view name, const Attributes& attributes);

    class Output;
    std::unique_ptr<Output> output_;
    std::vector<std::string> open_;
};

} // namespace Mhl
