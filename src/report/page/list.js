'use strict';

const firstChunk = 200;
const largestChunk = 2000;
const mostPrinted = 2000;
// A browser lays out a long table again for each new row, so rows beyond this go to another table.
const mostTableRows = 250;

function isIn(path, folderOrFile) {
    const isFolder = folderOrFile === '' || folderOrFile.endsWith('/');
    return isFolder ? path.startsWith(folderOrFile) : path === folderOrFile;
}

/**
 * Groups the items by what `groupOf` gives for each: [{name, items}], in the order of discovery.
 */
function grouped(items, groupOf) {
    const groups = new Map();
    for (const item of items) {
        const name = groupOf(item);
        if (!groups.has(name)) {
            groups.set(name, {name, items: []});
        }
        groups.get(name).items.push(item);
    }
    return [...groups.values()];
}

function sorted(groups, sort) {
    if (sort.groups) {
        groups.sort(sort.groups);
    }
    if (sort.items) {
        groups.forEach((group) => group.items.sort(sort.items));
    }
    return groups;
}

/**
 * The list of one view, in groups: the items that match the search and lie in the chosen folder.
 */
class FindingList {
    constructor() {
        this.search = document.getElementById('search');
        this.group = document.getElementById('group');
        this.sort = document.getElementById('sort');
        this.rows = document.getElementById('rows');
        this.more = document.getElementById('more');
        this.search.addEventListener('input', () => this.#refresh());
        this.group.addEventListener('change', () => this.#refresh());
        this.sort.addEventListener('change', () => this.#refresh());
        this.more.addEventListener('click', () => this.#addRows(largestChunk));
        const addSeen = ([seen]) => seen.isIntersecting && this.#addRows(this.chunk);
        new IntersectionObserver(addSeen, {rootMargin: '1500px'}).observe(this.more);
        addEventListener('beforeprint', () => this.#preparePrint());
    }

    /** Shows the items of a view in a folder ("" is the whole site), or those of one file. */
    show(view, path) {
        if (view !== this.view) {
            this.view = view;
            this.#offer(this.group, view.groups);
            this.#offer(this.sort, view.sorts);
        }
        this.path = path;
        this.#refresh();
    }

    #offer(select, choices) {
        select.replaceChildren(...choices.map(({name}) => element('option', {}, name)));
        select.parentElement.hidden = choices.length < 2;
    }

    #refresh() {
        const found = this.#found();
        this.grouping = this.view.groups[this.group.selectedIndex];
        const groups = grouped(found, this.grouping.of);
        const sort = this.view.sorts[this.sort.selectedIndex];
        this.lines = sorted(groups, sort).flatMap((group) => [{group}, ...group.items]);
        this.next = 0;
        this.chunk = firstChunk;
        this.#tell(found.length);
        this.rows.replaceChildren(found.length > 0 ? '' : this.#nothing());
        this.#addRows(firstChunk);
    }

    /** The items in the chosen folder that hold all words of the search. */
    #found() {
        const words = this.search.value.toLowerCase().split(/\s+/).filter(Boolean);
        const holdsWords = (item) => words.every((word) => textOf(item).includes(word));
        const items = this.view.items ?? [];
        return items.filter((item) => isIn(item.path, this.path) && holdsWords(item));
    }

    #tell(number) {
        const {items, one, many} = this.view;
        const all = items?.length ?? 0;
        const some = number === all ? '' : number.toLocaleString('en') + ' of ';
        const where = this.path === '' ? [] : [', in ', shown(this.path)];
        const count = document.getElementById('count');
        count.replaceChildren(some + counted(all, one, many), ...where);
        document.getElementById('everywhere').hidden = this.path === '';
        document.getElementById('list-title').textContent = many[0].toUpperCase() + many.slice(1);
    }

    #nothing() {
        const {items, many, praise} = this.view;
        const said = (text, className = 'nothing') => element('p', {className}, text);
        if (items === null) {
            return said('The check did not look for ' + many + '.');
        }
        if (items.length > 0) {
            const isSearch = this.search.value.trim() !== '';
            return said(isSearch ? 'Nothing holds these words.' : 'No ' + many + ' here.');
        }
        if (praise && results.finished && results.warnings.length === 0) {
            return said(praise, 'nothing praise');
        }
        return said('No ' + many + (results.finished ? '.' : ' so far.'));
    }

    /** Appends the next rows: a whole list at once would freeze the page of a large site. */
    #addRows(number) {
        const added = document.createDocumentFragment();
        for (const line of this.lines.slice(this.next, this.next + number)) {
            if (line.group) {
                const heading = this.#heading(line.group);
                this.label = heading.textContent;
                added.append(this.#newTable(heading));
                continue;
            }
            if (this.body.childElementCount === mostTableRows) {
                added.append(this.#newTable(''));
            }
            this.body.append(this.#row(line));
        }
        this.rows.append(added);
        this.next = Math.min(this.next + number, this.lines.length);
        // More rows each time, so that the end of a long list is soon reached.
        this.chunk = Math.min(2 * this.chunk, largestChunk);
        this.#offerMore();
    }

    #offerMore() {
        const left = this.lines.length - this.next;
        this.more.hidden = left === 0;
        this.more.textContent = 'Show more (' + left.toLocaleString('en') + ' left)';
    }

    #heading(group) {
        const title = this.grouping.title?.(group);
        if (title) {
            return element('h3', {}, title);
        }
        const number = ' ' + group.items.length.toLocaleString('en');
        return element('h3', {}, shown(group.name), element('span', {className: 'number'}, number));
    }

    /**
     * A table for the next rows, in a section that the browser skips while it is out of sight.
     */
    #newTable(heading) {
        this.body = element('tbody');
        const table = newTable(this.label, this.grouping.columns, this.body);
        return element('section', {}, heading, table);
    }

    #row(item) {
        const {columns, cells} = this.grouping;
        const made =
            cells(item).map((cell, i) => element('td', {className: columns[i][0]}, ...cell));
        return element('tr', {}, ...made);
    }

    #preparePrint() {
        this.#addRows(Math.max(0, mostPrinted - this.next));
        const left = this.lines.length - this.next;
        const note = document.getElementById('unprinted');
        note.hidden = left === 0;
        note.textContent = counted(left, 'more line is', 'more lines are') +
            ' not printed. Search, or choose a folder, to print what you need.';
    }
}
