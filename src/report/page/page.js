'use strict';

const chosen = {view: 'errors', path: ''};
const list = new FindingList();
const map = new SiteMap(choosePath);

function refresh() {
    map.show(chosen.path);
    showWay(chosen.path, choosePath);
    showTable(folderAt(chosen.path), choosePath);
    list.show(views[chosen.view], chosen.path);
    document.getElementById('list').className = 'tone-' + chosen.view;
}

/** Shows a folder, or what is the matter with a file. */
function choosePath(path) {
    const view = {errors: 'errors', unused: 'unused', duplicate: 'duplicates'}[files.get(path)?.state];
    chosen.path = path;
    chooseView(view ?? chosen.view);
}

function chooseView(name) {
    chosen.view = name;
    document.getElementById('view-' + name).checked = true;
    refresh();
}

function viewChoice(name) {
    const view = views[name];
    const number = view.items ? view.items.length.toLocaleString('en') : '–';
    const words = view.items ? (view.items.length === 1 ? view.one : view.many) : view.many + ' not looked for';
    const tone = view.items?.length > 0 ? '' : ' none';
    const input = element('input', {type: 'radio', name: 'view', id: 'view-' + name});
    input.addEventListener('change', () => chooseView(name));
    return element('label', {className: 'tone-' + name + tone}, input, element('strong', {}, number), ' ' + words);
}

function tellCheck() {
    document.title = counted(errors.length, 'error') + ': ' + siteName;
    document.getElementById('site').append(shown(siteName));
    const folders = counted(results.folders, 'folder');
    document.getElementById('circumstances').append(
        shown(results.top),
        ` · ${counted(results.read, 'file')} read · ${counted(results.references, 'reference')}` +
            ` · ${counted(files.size, 'file')} in ${folders}` +
            (hasSizes ? ', ' + sizeOf(site.size) : ''),
    );
    document.getElementById('map-title').textContent = hasSizes ? 'The site by size' : 'The site';
    document.getElementById('made').textContent = results.made;
    const outcome = document.getElementById('outcome');
    outcome.hidden = results.finished;
    outcome.textContent = 'The check did not reach its end: these are the results so far.';
}

/** The button offers the theme that is not on: what the system prefers, until somebody chooses. */
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
addThemeButton();
document.getElementById('views').append(...Object.keys(views).map(viewChoice));
document.getElementById('everywhere').addEventListener('click', () => choosePath(''));
chooseView('errors');
