'use strict';

const firstChunk = 200;
const largestChunk = 2000;
const mostPrinted = 2000;
const mostTableRows = 250; // A long table is laid out again with each row that comes: begin another.

/** The list of one view: what a search and the chosen folder leave of it, in groups, row by row. */
class FindingList {
    constructor() {
        this.search = document.getElementById('search');
        this.group = document.getElementById('group');
        this.sort = document.getElementById('sort');
        this.more = document.getElementById('more');
        this.search.addEventListener('input', () => this.#refresh());
        this.group.addEventListener('change', () => this.#refresh());
        this.sort.addEventListener('change', () => this.#refresh());
        this.more.addEventListener('click', () => this.#addRows(largestChunk));
        new IntersectionObserver(([seen]) => seen.isIntersecting && this.#addRows(this.chunk), {
            rootMargin: '1500px',
        }).observe(this.more);
        addEventListener('beforeprint', () => this.#preparePrint());
    }

    /** Shows a view of what lies in a folder ("" for the site) or in one file. */
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
        const groups = this.#grouped(found);
        this.rows = groups.flatMap((group) => [{group}, ...group.items.map((item) => ({item}))]);
        this.next = 0;
        this.chunk = firstChunk;
        this.#tell(found.length);
        document.getElementById('rows').replaceChildren(found.length > 0 ? '' : this.#nothing());
        this.#addRows(firstChunk);
    }

    /** The items in the chosen folder that hold all words of the search. */
    #found() {
        const words = this.search.value.toLowerCase().split(/\s+/).filter(Boolean);
        const isHere = (path) =>
            this.path === '' || this.path.endsWith('/') ? path.startsWith(this.path) : path === this.path;
        return (this.view.items ?? []).filter(
            (item) => isHere(item.path) && words.every((word) => textOf(item).includes(word)),
        );
    }

    #grouped(items) {
        const groups = new Map();
        for (const item of items) {
            const name = this.grouping.of(item);
            if (!groups.has(name)) {
                groups.set(name, {name, items: []});
            }
            groups.get(name).items.push(item);
        }
        const sort = this.view.sorts[this.sort.selectedIndex];
        const sorted = [...groups.values()];
        if (sort.groups) {
            sorted.sort(sort.groups);
        }
        if (sort.items) {
            sorted.forEach((group) => group.items.sort(sort.items));
        }
        return sorted;
    }

    #tell(number) {
        const {items, one, many} = this.view;
        const all = items?.length ?? 0;
        const said = number === all ? counted(all, one, many) : number.toLocaleString('en') + ' of ' + counted(all, one, many);
        const where = this.path === '' ? [] : [', in ', shown(this.path)];
        document.getElementById('count').replaceChildren(said, ...where);
        document.getElementById('everywhere').hidden = this.path === '';
        document.getElementById('list-title').textContent = many[0].toUpperCase() + many.slice(1);
    }

    #nothing() {
        const {items, many, praise} = this.view;
        if (items === null) {
            return element('p', {className: 'nothing'}, 'The check did not look for ' + many + '.');
        }
        if (items.length > 0) {
            return element('p', {className: 'nothing'}, 'Nothing here. Look elsewhere, or search for less.');
        }
        const said = results.finished ? praise : undefined;
        return element('p', {className: said ? 'nothing praise' : 'nothing'}, said ?? 'No ' + many + '.');
    }

    /** Appends the next rows; each time more, so that the end of a long list is soon reached. */
    #addRows(number) {
        const end = Math.min(this.next + number, this.rows.length);
        const added = document.createDocumentFragment();
        for (; this.next < end; ++this.next) {
            const {group, item} = this.rows[this.next];
            if (group) {
                this.heading = this.#heading(group);
                added.append(this.#newTable());
            } else {
                if (this.body.childElementCount === mostTableRows) {
                    added.append(this.#newTable());
                }
                this.body.append(this.#itemRow(item));
            }
        }
        document.getElementById('rows').append(added);
        const left = this.rows.length - this.next;
        this.chunk = Math.min(2 * this.chunk, largestChunk);
        this.more.hidden = left === 0;
        this.more.textContent = 'Show more (' + left.toLocaleString('en') + ' left)';
    }

    #heading(group) {
        const title = this.grouping.title?.(group);
        const number = element('span', {className: 'number'}, ' ' + group.items.length.toLocaleString('en'));
        return element('h3', {}, title ?? shown(group.name), title ? '' : number);
    }

    /** A table under the heading of its group. The browser leaves out those that are out of sight. */
    #newTable() {
        const heads = this.grouping.columns.map(([className, title]) =>
            element('th', {scope: 'col', className}, title),
        );
        this.body = element('tbody');
        const head = element('thead', {}, element('tr', {}, ...heads));
        const heading = this.heading;
        this.heading = '';
        return element('section', {}, heading, element('table', {}, head, this.body));
    }

    #itemRow(item) {
        const cells = this.grouping.cells(item);
        return element(
            'tr',
            {},
            ...cells.map((cell, i) =>
                element('td', {className: this.grouping.columns[i][0]}, ...cell),
            ),
        );
    }

    #preparePrint() {
        this.#addRows(Math.max(0, mostPrinted - this.next));
        const left = this.rows.length - this.next;
        const note = document.getElementById('unprinted');
        note.hidden = left === 0;
        note.textContent =
            counted(left, 'more line is', 'more lines are') +
            ' not printed. Search, or choose a folder, to print what you need.';
    }
}
