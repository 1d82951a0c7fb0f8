// What stays around every page: the ways to the pages, and a line that says when the receiver is away.

import {connection, get} from './api.js';
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
    return {
        element,
        main,
        mark(route) {
            for (const link of links)
                mark(link, link.dataset.page === route.page);
            markApplication(applications, route);
        },
    };
}

function mark(link, isCurrent) {
    if (isCurrent)
        link.setAttribute('aria-current', 'page');
    else
        link.removeAttribute('aria-current');
}

function markApplication(applications, route) {
    const bundleId = route.page === 'reports' ? route.parameters.get('bundle_id') : null;
    for (const link of applications.querySelectorAll('a'))
        mark(link, link.dataset.bundle === bundleId);
}

/// Lists the applications beside the pages, as ways into the inbox; as before when they can't be had.
export async function refreshApplications(signal) {
    const {applications} = await get('applications', signal).catch(() => ({}));
    const place = document.querySelector('.nav-apps');
    if (!applications || !place)
        return;
    const active = applications.filter((application) => !application.archived && application.reports > 0);
    active.sort((a, b) => (b.last_received ?? 0) - (a.last_received ?? 0));
    fill(place, active.length > 0 && el('h2', 'Applications'), active.slice(0, 12).map((application) =>
        el('a.nav-link', {href: address('reports', null, new URLSearchParams({bundle_id: application.bundle_id})),
            dataset: {bundle: application.bundle_id}, title: application.bundle_id},
        el('span.cut', quoted(shortName(application, active))), el('span.count', integer(application.reports)))));
    markApplication(place, current());
}

/// The end of the bundle id, unless another application's ends likewise.
function shortName({bundle_id: bundleId}, applications) {
    const end = bundleId.slice(bundleId.lastIndexOf('.'));
    const isAlone = applications.filter((other) => other.bundle_id.endsWith(end)).length === 1;
    return visible(isAlone && end.length > 2 ? end.replace('.', '') : bundleId, 100);
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
