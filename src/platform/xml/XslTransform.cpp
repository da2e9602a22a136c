#include "platform/xml/XslTransform.h"

#include "platform/text/TextEncoding.h"

#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/variables.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>

#include <climits>
#include <memory>

namespace
{
constexpr int deepestTemplate = 500;
/// Some seconds.
constexpr unsigned long mostSteps = 50'000'000;

struct Freer
{
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
    void operator()(xsltStylesheet* sheet) const { xsltFreeStylesheet(sheet); }
    void operator()(xsltTransformContext* context) const { xsltFreeTransformContext(context); }
    void operator()(xmlChar* text) const { xmlFree(text); }
};

template <typename Type>
using Owned = std::unique_ptr<Type, Freer>;

void KeepQuiet(void* /*context*/, const char* /*format*/, ...) {}

/// Keeps both libraries from reading and writing anything, and from the standard error.
void ForbidAll()
{
    static const bool forbidden = [] {
        xsltSecurityPrefs* const rules = xsltNewSecurityPrefs();
        for (const xsltSecurityOption option :
             {XSLT_SECPREF_READ_FILE, XSLT_SECPREF_WRITE_FILE, XSLT_SECPREF_CREATE_DIRECTORY,
              XSLT_SECPREF_READ_NETWORK, XSLT_SECPREF_WRITE_NETWORK}) {
            xsltSetSecurityPrefs(rules, option, xsltSecurityForbid);
        }
        xsltSetDefaultSecurityPrefs(rules);
        xsltSetGenericErrorFunc(nullptr, KeepQuiet);
        xmlSetGenericErrorFunc(nullptr, KeepQuiet);
        return true;
    }();
    static_cast<void>(forbidden);
}

/// An index file has no use for entities of its own, which can hold each other ever so many times.
bool DeclaresEntities(const xmlDoc& document)
{
    return document.intSubset != nullptr && document.intSubset->entities != nullptr;
}

/// Decoded by our own code, since libxml2 refuses letters that are usual in Japanese names.
Owned<xmlDoc> Parse(std::string_view bytes)
{
    const auto text = DecodeText(bytes);
    if (!text || text->size() > INT_MAX) return nullptr;
    constexpr int options = XML_PARSE_NONET | XML_PARSE_IGNORE_ENC | XML_PARSE_NOERROR |
                            XML_PARSE_NOWARNING | XML_PARSE_NOCDATA;
    Owned<xmlDoc> document(
        xmlReadMemory(text->data(), static_cast<int>(text->size()), nullptr, "UTF-8", options));
    return document && !DeclaresEntities(*document) ? std::move(document) : nullptr;
}

const xmlChar* Bytes(const char* text)
{
    return reinterpret_cast<const xmlChar*>(text);
}

Owned<xsltStylesheet> Compile(std::string_view bytes)
{
    Owned<xmlDoc> document = Parse(bytes);
    if (!document) return nullptr;
    Owned<xsltStylesheet> sheet(xsltParseStylesheetDoc(document.get()));
    // With it goes the document, but for one that was refused.
    if (sheet) static_cast<void>(document.release());
    return sheet && sheet->errors == 0 ? std::move(sheet) : nullptr;
}
} // namespace

std::optional<std::string> TransformXml(std::string_view xml, std::string_view stylesheet,
                                        const CString& note)
{
    ForbidAll();
    const Owned<xmlDoc> source = Parse(xml);
    const Owned<xsltStylesheet> sheet = Compile(stylesheet);
    if (!source || !sheet) return std::nullopt;
    const Owned<xsltTransformContext> context(xsltNewTransformContext(sheet.get(), source.get()));
    if (!context) return std::nullopt;
    context->maxTemplateDepth = deepestTemplate;
    context->opLimit = mostSteps;
    context->xpathCtxt->opLimit = mostSteps;
    xsltQuoteOneUserParam(context.get(), Bytes("note"), Bytes(note.c_str()));
    const Owned<xmlDoc> result(xsltApplyStylesheetUser(sheet.get(), source.get(), nullptr, nullptr,
                                                       nullptr, context.get()));
    if (!result || context->state != XSLT_STATE_OK) return std::nullopt;
    xmlChar* page = nullptr;
    int length = 0;
    if (xsltSaveResultToString(&page, &length, result.get(), sheet.get()) != 0 || page == nullptr) {
        return std::nullopt;
    }
    const Owned<xmlChar> owned(page);
    return std::string(reinterpret_cast<const char*>(page), static_cast<std::size_t>(length));
}
