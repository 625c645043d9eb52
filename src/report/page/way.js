'use strict';

const mostFolderRows = 500;

/** A button that leads to a folder or file of the map. */
function pathButton(path, name, choose) {
    const made = element('button', {type: 'button'}, shown(name));
    made.addEventListener('click', () => choose(path));
    return made;
}

/** Shows the path from the site to a folder or file as buttons that lead back. */
function showWay(path, choose) {
    const steps = [element('li', {}, pathButton('', siteName, choose))];
    for (let at = path; at !== ''; at = pathAbove(at)) {
        const name = at.slice(pathAbove(at).length).replace(/\/$/, '');
        steps.splice(1, 0, element('li', {}, pathButton(at, name, choose)));
    }
    steps.at(-1).firstChild.setAttribute('aria-current', 'location');
    document.getElementById('way').replaceChildren(...steps);
}

function tableRow(node, choose) {
    const name = node.name + (node.children ? '/' : '');
    const cells = [pathButton(node.path, name, choose), sizeOf(node.size), stateOf(node)];
    const classes = ['', 'size', ''];
    return element(
        'tr', {}, ...cells.map((cell, i) => element('td', {className: classes[i]}, cell))
    );
}

/** Lists the contents of a folder, for people who cannot use the map or want exact figures. */
function showTable(folder, choose) {
    const nodes = [...folder.children.values()].sort((a, b) => b.size - a.size);
    const rows = nodes.slice(0, mostFolderRows).map((node) => tableRow(node, choose));
    const columns = [['', 'Name'], ['size', 'Size'], ['', 'State']];
    const table = newTable('This folder', columns, element('tbody', {}, ...rows));
    const rest = nodes.length - rows.length;
    const note = element('p', {className: 'hint'}, 'and ' + counted(rest, 'smaller one'));
    document.querySelector('#contents div').replaceChildren(table, rest > 0 ? note : '');
}
