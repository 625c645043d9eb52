'use strict';

// The site as a tree. A file has {name, path} and totals: {size, count, errors, unused, duplicates,
// state}. A folder also has `children`, and its totals are their sums. Its path ends in "/"; that
// of the site itself is empty.

function worseState(a, b) {
    const states = ['sound', 'duplicate', 'unused', 'errors'];
    return states.indexOf(a) < states.indexOf(b) ? b : a;
}

function noTotals() {
    return {size: 0, count: 0, errors: 0, unused: 0, duplicates: 0, state: 'sound'};
}

function newFolder(name, path) {
    return {name, path, ...noTotals(), children: new Map()};
}

/** The subfolder `name` of a folder; made if there is none. */
function subfolder(folder, name) {
    const key = name + '/';
    if (!folder.children.has(key)) {
        folder.children.set(key, newFolder(name, folder.path + key));
    }
    return folder.children.get(key);
}

function addUp(sum, node) {
    for (const total of ['size', 'count', 'errors', 'unused', 'duplicates']) {
        sum[total] += node[total];
    }
    sum.state = worseState(sum.state, node.state);
}

const site = newFolder('', '');
for (const file of files.values()) {
    const names = file.path.split('/');
    const name = names.pop();
    let folder = site;
    addUp(folder, file);
    for (const each of names) {
        folder = subfolder(folder, each);
        addUp(folder, file);
    }
    folder.children.set(name, {...file, name});
}

/** A check by the classic rules may know no sizes. */
const hasSizes = site.size > 0;

/** The folder that a path lies in, or the folder that it names if it ends in "/". */
function folderAt(path) {
    const names = path.split('/').slice(0, -1);
    return names.reduce((folder, name) => folder.children.get(name + '/'), site);
}

/** The folder itself, or the first one below it that holds more than one folder. */
function firstFork(folder) {
    let [child, ...others] = folder.children.values();
    while (child?.children && others.length === 0) {
        folder = child;
        [child, ...others] = folder.children.values();
    }
    return folder;
}

/** "menu/" for "menu/index.html", "" for "menu/". */
function pathAbove(path) {
    return path.slice(0, path.slice(0, -1).lastIndexOf('/') + 1);
}

/** What the map says about a file or folder: "3 files, 12 kB, 1 error". */
function descriptionOf(node) {
    const parts = node.children ? [counted(node.count, 'file')] : [];
    if (hasSizes) {
        parts.push(sizeOf(node.size));
    }
    return [...parts, stateOf(node)].join(', ');
}

function stateOf({errors, unused, duplicates}) {
    const parts = [
        errors > 0 ? counted(errors, 'error') : '',
        unused > 0 ? unused.toLocaleString('en') + ' unused' : '',
        duplicates > 0 ? counted(duplicates, 'duplicate') : '',
    ];
    return parts.filter(Boolean).join(', ') || 'sound';
}
