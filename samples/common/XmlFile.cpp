#include "samples/common/XmlFile.h"

#include "samples/common/Com.h"
#include "samples/common/ProblemFile.h"

// After Com.h: the parser's header relies on the COM headers.
#include <msxml2.h>
#include <shlwapi.h>

namespace jsw::sample {

namespace {

/** Limits the recursion over elements: our files need three levels. */
constexpr int kDeepestElement = 32;

std::wstring widen(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    const int length = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string narrow(std::wstring_view text) {
    if (text.empty()) {
        return {};
    }
    const int length = static_cast<int>(text.size());
    std::string bytes(static_cast<size_t>(WideCharToMultiByte(CP_ACP, 0, text.data(), length,
                                                              nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(),
                        static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

void copyAttributes(IXMLDOMNode& element, XmlNode& node) {
    ComPtr<IXMLDOMNamedNodeMap> attributes;
    long count = 0;
    if (element.get_attributes(attributes.out()) != S_OK ||
        FAILED(attributes->get_length(&count))) {
        return;
    }
    for (long index = 0; index < count; ++index) {
        ComPtr<IXMLDOMNode> attribute;
        ComString name;
        ComString value;
        if (attributes->get_item(index, attribute.out()) == S_OK &&
            SUCCEEDED(attribute->get_nodeName(name.out())) &&
            SUCCEEDED(attribute->get_text(value.out()))) {
            node.attributes[narrow(name.view())] = trim(narrow(value.view()));
        }
    }
}

/** False if an element is nested too deeply. */
bool copyElement(IXMLDOMNode& element, int depth, XmlNode& node) {
    if (depth > kDeepestElement) {
        return false;
    }
    ComString name;
    ComString text;
    if (SUCCEEDED(element.get_nodeName(name.out())) && SUCCEEDED(element.get_text(text.out()))) {
        node.name = narrow(name.view());
        node.text = trim(narrow(text.view()));
    }
    copyAttributes(element, node);

    ComPtr<IXMLDOMNode> child;
    element.get_firstChild(child.out());
    while (child) {
        DOMNodeType type = NODE_INVALID;
        if (SUCCEEDED(child->get_nodeType(&type)) && type == NODE_ELEMENT &&
            !copyElement(*child.get(), depth + 1, node.children.emplace_back())) {
            return false;
        }
        ComPtr<IXMLDOMNode> next;
        child->get_nextSibling(next.out());
        child = std::move(next);
    }
    return true;
}

std::string parseErrorText(IXMLDOMDocument& document) {
    ComPtr<IXMLDOMParseError> error;
    ComString reason;
    long line = 0;
    if (FAILED(document.get_parseError(error.out())) || FAILED(error->get_reason(reason.out())) ||
        FAILED(error->get_line(&line))) {
        return "cannot be read";
    }
    return "line " + std::to_string(line) + ": " + trim(narrow(reason.view()));
}

ComPtr<IXMLDOMDocument> createDocument() {
    ComPtr<IXMLDOMDocument> document;
    CLSID parser = {};
    if (FAILED(CLSIDFromProgID(L"MSXML2.DomDocument.3.0", &parser)) ||
        FAILED(CoCreateInstance(parser, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                document.outVoid()))) {
        document.reset();
        return document;
    }
    document->put_async(VARIANT_FALSE);
    // Loads no external files to which an XML file refers.
    document->put_validateOnParse(VARIANT_FALSE);
    document->put_resolveExternals(VARIANT_FALSE);
    return document;
}

}  // namespace

std::optional<XmlNode> readXmlFile(const std::string& path, std::string& problem) {
    const ComScope com;
    const ComPtr<IXMLDOMDocument> document =
        com.ready() ? createDocument() : ComPtr<IXMLDOMDocument>();
    if (!document) {
        problem = "the XML parser, version 3, is not installed";
        return std::nullopt;
    }
    // A stream, not the file's name: the parser would treat the name as an address and load
    // download libraries into the host.
    ComPtr<IStream> file;
    if (SHCreateStreamOnFileW(widen(path).c_str(), STGM_READ | STGM_SHARE_DENY_WRITE, file.out()) !=
        S_OK) {
        problem = "cannot be opened";
        return std::nullopt;
    }
    VARIANT source;
    VariantInit(&source);
    source.vt = VT_UNKNOWN;
    source.punkVal = file.get();
    VARIANT_BOOL loaded = VARIANT_FALSE;
    if (document->load(source, &loaded) != S_OK || loaded != VARIANT_TRUE) {
        problem = parseErrorText(*document.get());
        return std::nullopt;
    }
    ComPtr<IXMLDOMElement> root;
    XmlNode node;
    if (document->get_documentElement(root.out()) != S_OK || !copyElement(*root.get(), 1, node)) {
        problem = "no root element, or elements nested too deeply";
        return std::nullopt;
    }
    return node;
}

std::optional<XmlNode> loadXmlFile(const std::string& path) {
    std::string problem;
    auto root = readXmlFile(path, problem);
    if (root) {
        forgetProblem(path);
    } else {
        reportProblem(path, problem);
    }
    return root;
}

}  // namespace jsw::sample
