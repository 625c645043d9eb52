'use strict';

// The lists. Each has `items` (null if the check did not look for them) and words for their number.
// `groups` says how they can be grouped: the group of an item, its title if that is more than the
// group's name, the columns as [class, title], and the cells of an item. `sorts` holds comparisons
// of groups, {name, items}, and of items; without a comparison they keep their order.

const hasPlaces = findings.some((finding) => finding.place);
const placeColumn = [hasPlaces ? 'place' : 'no place', 'Place'];
const pageColumn = ['page place', 'Page'];
const referenceColumn = ['', 'Reference'];
const wrongColumn = ['wrong', 'What is wrong'];

/** The line of the page, with the reference marked. */
function sourceOf({before, after, reference: written}) {
    if (!before && !after) {
        return '';
    }
    const value = after.startsWith(written) ? written : /^[^"'<>\s)]*/.exec(after)[0];
    const rest = after.slice(value.length);
    const line = shown(before);
    line.append(element('mark', {}, ...shown(value).childNodes), ...shown(rest).childNodes);
    return element('code', {className: 'source'}, line);
}

function referenceCell(item) {
    return [shown(item.reference, 'reference'), sourceOf(item)];
}

function meantCell({suggestion}) {
    return suggestion ? ['did you mean ', shown(suggestion, 'meant'), '?'] : [];
}

function wrongCell(item) {
    return [element('div', {}, item.kind), ...meantCell(item)];
}

function pageCell({path, place}) {
    return [shown(path), ' ', place];
}

const byPage = {
    name: 'Page',
    of: (item) => item.path,
    columns: [placeColumn, referenceColumn, wrongColumn],
    cells: (item) => [[item.place], referenceCell(item), wrongCell(item)],
};

const byKind = {
    name: 'Kind',
    of: (item) => item.kind,
    columns: [pageColumn, referenceColumn, ['wrong', 'What was meant']],
    cells: (item) => [pageCell(item), referenceCell(item), meantCell(item)],
};

const byTarget = {
    name: 'Target',
    of: (item) => item.target,
    columns: [pageColumn, referenceColumn, wrongColumn],
    cells: (item) => [pageCell(item), referenceCell(item), wrongCell(item)],
};

const ofFile = {
    columns: [['', 'File'], ['size', 'Size']],
    cells: (item) => [[shown(item.path)], [sizeOf(item.size)]],
};

const byFolder = {
    ...ofFile,
    name: 'Folder',
    of: (item) => '/' + pathAbove(item.path)
};

const byContent = {
    ...ofFile,
    name: 'Content',
    of: (item) => item.number,
    title: ({items: [first, ...others]}) =>
        counted(others.length + 1, 'equal file') + ' of ' + sizeOf(first.size),
};

const bytesOf = (group) => group.items.reduce((sum, item) => sum + item.size, 0);
const byName = {
    name: 'By name',
    groups: (a, b) => byText(a.name, b.name)
};
const sortsOfPages = [
    {name: 'In page order'},
    {name: 'Most first', groups: (a, b) => b.items.length - a.items.length},
    {...byName, items: (a, b) => byText(a.reference, b.reference)},
];
const sortsOfFiles = [
    {...byName, items: (a, b) => byText(a.path, b.path)},
    {
        name: 'Largest first',
        groups: (a, b) => bytesOf(b) - bytesOf(a),
        items: (a, b) => b.size - a.size,
    },
];

const ofFindings = {
    groups: [byPage, byTarget, byKind],
    sorts: sortsOfPages
};

const views = {
    errors: {
        ...ofFindings,
        items: errors,
        one: 'error',
        many: 'errors',
        praise: 'No errors: every reference leads where it should.',
    },
    notes: {
        ...ofFindings,
        items: notes,
        one: 'note',
        many: 'notes',
    },
    known: {
        ...ofFindings,
        items: known,
        one: 'known finding',
        many: 'known findings',
    },
    ignored: {
        groups: [byPage, byKind],
        sorts: sortsOfPages,
        items: results.ignored.map(ignoredItem),
        one: 'ignored reference',
        many: 'ignored references',
    },
    unused: {
        groups: [byFolder],
        sorts: sortsOfFiles,
        items: results.unusedKnown ? unused : null,
        one: 'unused file',
        many: 'unused files',
        praise: 'No unused files: something leads to each of them.',
    },
    duplicates: {
        groups: [byContent],
        sorts: sortsOfFiles,
        items: results.duplicates ? duplicates : null,
        one: 'duplicate file',
        many: 'duplicate files',
        praise: 'No duplicates: no two files are the same.',
    },
};

if (known.length === 0) {
    delete views.known;
}
