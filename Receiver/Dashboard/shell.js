// What stays around every page: the ways to the pages, and a line that says when the receiver is away.

import {knownApplications, onApplications, shortName} from './applicationNames.js';
import {connection} from './api.js';
import {el, fill, quoted} from './dom.js';
import {integer} from './format.js';
import {icon} from './icons.js';
import {address, current} from './router.js';
import {visible} from './text.js';
import {showHelp} from './help.js';

const pages = [['reports', 'Inbox', 'inbox'], ['applications', 'Applications', 'apps'], ['clients', 'Clients', 'key'],
    ['account', 'Account', 'person']];

/// {element, main, mark(route)}
export function buildShell(session) {
    const links = pages.map(([page, name, picture]) =>
        el('a.nav-link', {href: address(page), dataset: {page}}, icon(picture), el('span', name)));
    const applications = el('nav.nav-apps', {'aria-label': 'Applications'});
    const main = el('main.page', {tabIndex: -1});
    const element = el('.shell',
        el('header.side',
            el('a.brand', {href: address('reports'), title: 'Wexel'}, el('img', {src: 'assets/icon.svg', alt: '', width: 24, height: 24}),
                el('span', 'Wexel')),
            el('nav.nav', {'aria-label': 'Pages'}, links),
            applications,
            el('.side-end', el('button.quiet.small', {type: 'button', onclick: showHelp}, icon('help'), el('span', 'Keys')),
                el('span.faint', {title: 'The receiver’s version'}, visible(session.version, 20)))),
        connectionLine(), main);
    onApplications(() => listApplications(applications));
    return {
        element,
        main,
        mark(route) {
            for (const link of links)
                mark(link, link.dataset.page === route.page, 'page');
            markApplication(applications, route);
        },
    };
}

function mark(link, isCurrent, as) {
    if (isCurrent)
        link.setAttribute('aria-current', as);
    else
        link.removeAttribute('aria-current');
}

function markApplication(applications, route) {
    const bundleId = route.page === 'reports' ? route.parameters.get('bundle_id') : null;
    for (const link of applications.querySelectorAll('a'))
        mark(link, link.dataset.bundle === bundleId, 'true');
}

/// The applications beside the pages, as ways into the inbox.
function listApplications(place) {
    const active = knownApplications().filter((application) => !application.archived && application.reports > 0);
    active.sort((a, b) => (b.last_received ?? 0) - (a.last_received ?? 0));
    fill(place, active.length > 0 && el('h2', 'Applications'), active.slice(0, 12).map((application) =>
        el('a.nav-link', {href: address('reports', null, new URLSearchParams({bundle_id: application.bundle_id})),
            dataset: {bundle: application.bundle_id}, title: application.bundle_id},
        el('span.cut', quoted(shortName(application.bundle_id))), el('span.count', integer(application.reports)))));
    markApplication(place, current());
}

/// Hidden unless the receiver is away.
export function connectionLine() {
    const line = el('p.connection', {role: 'status', hidden: true});
    connection.addEventListener('trouble', ({detail}) => {
        line.hidden = false;
        line.textContent = detail.status === 0 ? 'The receiver does not answer. Trying again…'
            : 'The receiver is busy. Trying again…';
    });
    connection.addEventListener('restored', () => { line.hidden = true; });
    return line;
}
