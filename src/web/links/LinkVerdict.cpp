#include "web/links/LinkVerdict.h"

namespace quillmark::web {

namespace {

LinkVerdict error(FindingKind kind, int status = 0) {
    return {kind, FindingLevel::Error, static_cast<std::uint16_t>(status), {}};
}

LinkVerdict note(FindingKind kind, int status = 0) {
    return {kind, FindingLevel::Note, static_cast<std::uint16_t>(status), {}};
}

bool isForGood(int status) {
    return status == 301 || status == 308;
}

/// A page has moved as far as its permanent redirects lead: behind a temporary one nothing is for
/// good.
LinkVerdict soundOrMoved(const UrlAnswer& answer) {
    LinkVerdict verdict;
    for (const Redirect& redirect : answer.redirects) {
        if (!isForGood(redirect.status)) {
            break;
        }
        verdict.movedTo = redirect.to;
    }
    if (!verdict.movedTo.empty()) {
        verdict.kind = FindingKind::Moved;
        verdict.status = static_cast<std::uint16_t>(answer.redirects.front().status);
    }
    return verdict;
}

LinkVerdict onStatus(const UrlAnswer& answer) {
    switch (const int status = answer.status; status) {
    case 301:
    case 302:
    case 303:
    case 307:
    case 308: // The last answer redirects nowhere, or it would have been followed.
        return error(FindingKind::RedirectNowhere, status);
    case 404:
    case 410:
        return error(FindingKind::AddressMissing, status);
    case 401:
    case 403:
    case 407:
    case 408:
    case 425:
    case 429:
        return note(FindingKind::Undetermined, status);
    default:
        if (status < 400) {
            return soundOrMoved(answer);
        }
        return status < 500 ? error(FindingKind::AddressRefused, status)
                            : note(FindingKind::Undetermined, status);
    }
}

LinkVerdict onFailure(UrlFailure failure) {
    switch (failure) {
    case UrlFailure::NoAddress:
        return error(FindingKind::NoAddress);
    case UrlFailure::UnknownName:
        return error(FindingKind::HostUnknown);
    case UrlFailure::Refused:
        return error(FindingKind::HostRefuses);
    case UrlFailure::Untrusted:
        return error(FindingKind::Insecure);
    case UrlFailure::EndlessRedirects:
        return error(FindingKind::RedirectLoop);
    case UrlFailure::RedirectNowhere:
        return error(FindingKind::RedirectNowhere);
    case UrlFailure::PrivateNetwork:
        return note(FindingKind::PrivateAddress);
    case UrlFailure::TimedOut:
        return note(FindingKind::TimedOut);
    case UrlFailure::NotAsked:
        return note(FindingKind::NotAsked);
    default:
        return note(FindingKind::NoAnswer);
    }
}

} // namespace

// The header decides, even if the body broke off or never ended: a browser shows what it got.
LinkVerdict verdictOn(const UrlAnswer& answer) {
    const bool bodyOnly = answer.status != 0 && (answer.failure == UrlFailure::TimedOut ||
                                                 answer.failure == UrlFailure::Broken);
    return answer.failure == UrlFailure::None || bodyOnly ? onStatus(answer)
                                                          : onFailure(answer.failure);
}

} // namespace quillmark::web
