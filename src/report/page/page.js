'use strict';

const chosen = {
    view: 'errors',
    path: ''
};
const list = new FindingList();
const map = new SiteMap(choosePath);

function refresh() {
    map.show(chosen.path);
    showWay(chosen.path, choosePath);
    showTable(folderAt(chosen.path), choosePath);
    list.show(views[chosen.view], chosen.path);
    document.getElementById('list').className = 'tone-' + chosen.view;
}

/** Shows a folder, or the view that says what is wrong with a file. */
function choosePath(path) {
    const viewsOfStates = {errors: 'errors', unused: 'unused', duplicate: 'duplicates'};
    chosen.path = path;
    chooseView(viewsOfStates[files.get(path)?.state] ?? chosen.view);
}

function chooseView(name) {
    chosen.view = name;
    document.getElementById('view-' + name).checked = true;
    refresh();
}

/** The button of a total, which shows its view. */
function viewChoice(name) {
    const {items, one, many} = views[name];
    const input = element('input', {type: 'radio', name: 'view', id: 'view-' + name});
    input.addEventListener('change', () => chooseView(name));
    const number = element('strong', {}, items ? items.length.toLocaleString('en') : '–');
    const words = items?.length === 1 ? one : many;
    const className = 'tone-' + name + (items?.length > 0 ? '' : ' none');
    return element(
        'label', {className}, input, number, ' ' + words + (items ? '' : ' not looked for')
    );
}

function tellCheck() {
    document.title = counted(errors.length, 'error') + ': ' + siteName;
    document.getElementById('site').append(shown(siteName));
    const seen = [
        counted(results.read, 'file') + ' read',
        counted(results.references, 'reference'),
        ...(results.addresses ? [counted(results.addresses, 'web address', 'web addresses')] : []),
        counted(files.size, 'file') + ' in ' + counted(results.folders, 'folder'),
        ...(hasSizes ? [sizeOf(site.size)] : []),
    ];
    document.getElementById('circumstances').append(shown(results.top), ' · ' + seen.join(' · '));
    document.getElementById('map-title').textContent = hasSizes ? 'The site by size' : 'The site';
    document.getElementById('made').textContent = results.made;
    document.getElementById('map').hidden = files.size === 0;
}

/** Warns if the check did not reach its end or could not read all of its pages. */
function tellOutcome() {
    const isSound = results.finished && results.warnings.length === 0;
    document.body.classList.toggle('doubtful', !isSound);
    const outcome = document.getElementById('outcome');
    outcome.hidden = isSound;
    outcome.append(...results.warnings.map((text) => element('p', {}, text)));
    if (!results.finished) {
        outcome.append(
            'The check did not reach its end: these are the results so far. Its last messages:',
            element('ul', {}, ...results.messages.map((text) => element('li', {}, shown(text))))
        );
    }
}

/** The button offers the other theme. At first the page has the one that the system prefers. */
function addThemeButton() {
    const button = document.getElementById('theme');
    const system = matchMedia('(prefers-color-scheme: dark)');
    let isDark = system.matches;
    const show = () => {
        document.documentElement.style.colorScheme = isDark ? 'dark' : 'light';
        button.textContent = isDark ? 'Light' : 'Dark';
        button.setAttribute('aria-label', button.textContent + ' colours');
    };
    button.addEventListener('click', () => {
        isDark = !isDark;
        show();
    });
    system.addEventListener('change', () => {
        isDark = system.matches;
        show();
    });
    show();
}

tellCheck();
tellOutcome();
addThemeButton();
document.getElementById('views').append(...Object.keys(views).map(viewChoice));
document.getElementById('everywhere').addEventListener('click', () => choosePath(''));
chooseView('errors');
