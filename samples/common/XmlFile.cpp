#include "samples/common/XmlFile.h"

#include "common/Com.h"
#include "common/Encoding.h"
#include "common/Letters.h"
#include "samples/common/ProblemFile.h"

// After Com.h: the parser's header relies on the COM headers.
#include <msxml2.h>
#include <shlwapi.h>

#include <wrl/client.h>

namespace jsw::sample {
namespace {

using Microsoft::WRL::ComPtr;

/** Limits the recursion over elements: our files need three levels. */
constexpr int kDeepestElement = 32;

std::string trimmed(std::wstring_view text) {
    return std::string(common::trim(common::ansi(text)));
}

void copyAttributes(IXMLDOMNode& element, XmlNode& node) {
    ComPtr<IXMLDOMNamedNodeMap> attributes;
    long count = 0;
    if (element.get_attributes(attributes.GetAddressOf()) != S_OK ||
        FAILED(attributes->get_length(&count))) {
        return;
    }
    for (long index = 0; index < count; ++index) {
        ComPtr<IXMLDOMNode> attribute;
        common::ComString name;
        common::ComString value;
        if (attributes->get_item(index, attribute.GetAddressOf()) == S_OK &&
            SUCCEEDED(attribute->get_nodeName(name.out())) &&
            SUCCEEDED(attribute->get_text(value.out()))) {
            node.attributes[common::ansi(name.view())] = trimmed(value.view());
        }
    }
}

/** False if an element is nested too deeply. */
bool copyElement(IXMLDOMNode& element, int depth, XmlNode& node) {
    if (depth > kDeepestElement) return false;
    common::ComString name;
    common::ComString text;
    if (SUCCEEDED(element.get_nodeName(name.out())) && SUCCEEDED(element.get_text(text.out()))) {
        node.name = common::ansi(name.view());
        node.text = trimmed(text.view());
    }
    copyAttributes(element, node);

    ComPtr<IXMLDOMNode> child;
    element.get_firstChild(child.GetAddressOf());
    while (child) {
        DOMNodeType type = NODE_INVALID;
        if (SUCCEEDED(child->get_nodeType(&type)) && type == NODE_ELEMENT &&
            !copyElement(*child.Get(), depth + 1, node.children.emplace_back())) {
            return false;
        }
        ComPtr<IXMLDOMNode> next;
        child->get_nextSibling(next.GetAddressOf());
        child = std::move(next);
    }
    return true;
}

std::string parseErrorText(IXMLDOMDocument& document) {
    ComPtr<IXMLDOMParseError> error;
    common::ComString reason;
    long line = 0;
    if (FAILED(document.get_parseError(error.GetAddressOf())) ||
        FAILED(error->get_reason(reason.out())) || FAILED(error->get_line(&line))) {
        return "cannot be read";
    }
    if (line == 0) return "is not well-formed XML";  // Wine's parser tells neither place nor reason
    return "line " + std::to_string(line) + ": " + trimmed(reason.view());
}

ComPtr<IXMLDOMDocument> createDocument() {
    ComPtr<IXMLDOMDocument> document;
    CLSID parser = {};
    if (FAILED(CLSIDFromProgID(L"MSXML2.DomDocument.3.0", &parser)) ||
        FAILED(CoCreateInstance(parser, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                                reinterpret_cast<void**>(document.GetAddressOf())))) {
        return nullptr;
    }
    document->put_async(VARIANT_FALSE);
    // Loads no external files to which an XML file refers.
    document->put_validateOnParse(VARIANT_FALSE);
    document->put_resolveExternals(VARIANT_FALSE);
    return document;
}

}  // namespace

std::optional<XmlNode> readXmlFile(const std::string& path, std::string& problem) {
    const common::ComScope com;
    const ComPtr<IXMLDOMDocument> document =
        com.ready() ? createDocument() : ComPtr<IXMLDOMDocument>();
    if (!document) {
        problem = "the XML parser, version 3, is not installed";
        return std::nullopt;
    }
    // A stream, not the file's name: the parser would treat the name as an address and load
    // download libraries into the host.
    ComPtr<IStream> file;
    if (SHCreateStreamOnFileW(common::wideFromAnsi(path).c_str(), STGM_READ | STGM_SHARE_DENY_WRITE,
                              file.GetAddressOf()) != S_OK) {
        problem = "cannot be opened";
        return std::nullopt;
    }
    VARIANT source;
    VariantInit(&source);
    source.vt = VT_UNKNOWN;
    source.punkVal = file.Get();
    VARIANT_BOOL loaded = VARIANT_FALSE;
    if (document->load(source, &loaded) != S_OK || loaded != VARIANT_TRUE) {
        problem = parseErrorText(*document.Get());
        return std::nullopt;
    }
    ComPtr<IXMLDOMElement> root;
    XmlNode node;
    if (document->get_documentElement(root.GetAddressOf()) != S_OK ||
        !copyElement(*root.Get(), 1, node)) {
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
