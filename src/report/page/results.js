'use strict';

// What the check wrote into this page. Its lists hold rows of values, as short as possible, since a
// large site has tens of thousands.
const results = JSON.parse(document.getElementById('results').textContent);

function placeOf(line, column) {
    return line === 0 ? '' : line + ':' + column;
}

function findingItem(row) {
    const [explanation, level, page, line, column, reference, target, suggestion, before, after] =
        row;
    return {
        path: results.pages[page],
        kind: results.explanations[explanation],
        level,
        place: placeOf(line, column),
        reference,
        target: results.targets[target],
        suggestion,
        before,
        after,
    };
}

function ignoredItem([reason, page, line, column, reference]) {
    const kind = results.reasons[reason];
    return {path: results.pages[page], kind, place: placeOf(line, column), reference};
}

const findings = results.findings.map(findingItem);
const [errors, notes, known] = [0, 1, 2].map(
    (level) => findings.filter((finding) => finding.level === level),
);

/** The files of the site by path, with their totals (tree.js tells what these are). */
const files = new Map();
for (const [path, size, isUnused] of results.files) {
    const state = isUnused ? 'unused' : 'sound';
    files.set(path, {path, size, count: 1, errors: 0, unused: isUnused, duplicates: 0, state});
}
const unused = [...files.values()].filter((file) => file.unused);

const duplicates =
    (results.duplicates ?? [])
        .flatMap(
            (group, number) =>
                group.map((file) => ({...files.get(results.files[file][0]), number})),
        );
for (const {path} of duplicates) {
    const file = files.get(path);
    file.state = 'duplicate';
    file.duplicates = 1;
}
for (const {path} of errors) {
    const page = files.get(path);
    if (page) {
        page.state = 'errors';
        ++page.errors;
    }
}

/** The text of an item that a search looks into, in lower case; made on first use. */
function textOf(item) {
    const {path, reference, target, kind, suggestion, before, after} = item;
    const texts = [path, reference, target, kind, suggestion, before, after];
    item.text ??= texts.join('\n').toLowerCase();
    return item.text;
}

/** The name of the folder that holds the site. */
const siteName = results.top.split('/').filter(Boolean).pop() ?? '/';
