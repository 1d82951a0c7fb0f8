// The inbox: the list of reports as the address describes it, kept up to date.

import {connection, get} from './api.js';
import {refreshApplications} from './applicationNames.js';
import {el, failed, fill} from './dom.js';
import {integer, plural} from './format.js';
import {emptyInbox, nothingFound} from './emptyInbox.js';
import {buildFilters} from './inboxFilters.js';
import {buildList} from './inboxList.js';
import {changed, isFiltered, listQuery, order, pageNumber, pageSize} from './inboxQuery.js';
import {icon} from './icons.js';
import {resetKeys} from './keyboard.js';
import {lastShown} from './lastShown.js';
import {keepAsking} from './live.js';
import {address, go, replace} from './router.js';

const atTop = 80; // pixels: scrolled less than this, what arrives is put in at once

export function showInbox({place, route, signal}) {
    const filters = buildFilters({signal, toFirst: () => loaded.then(() => list.focusFirst(), () => {})});
    const list = buildList();
    const count = el('p.list-count', {role: 'status'}, 'Loading…');
    const news = el('button.news', {type: 'button', hidden: true, onclick: showNews});
    const paging = el('nav.paging', {'aria-label': 'Pages of the list'});
    const empty = el('.empty-place');
    let parameters = route.parameters;
    let shown = null; // the last answer for these parameters
    let loading = new AbortController();
    let loaded = null; // settles with the last load
    let isLoading = false;
    let isRefused = false; // for good: only another question has an answer
    let listed = null; // the newest report of all that the filters and the applications are of
    let newFrom; // when its list was left for one that shows what arrived since

    fill(place, el('h1.off-screen', 'Inbox'), filters.element, el('.list-line', count, filters.clear, news), empty, list.element, paging);
    resetKeys({
        j: () => list.move(1), ArrowDown: () => list.move(1), k: () => list.move(-1), ArrowUp: () => list.move(-1),
        '/': filters.focusSearch, n: () => news.hidden ? false : showNews(), Escape: () => place.focus({preventScroll: true}),
    });
    signal.addEventListener('abort', () => {
        loading.abort();
        Object.assign(lastShown, {scroll: scrollY, focused: list.focused()});
    });
    connection.addEventListener('trouble', dropOthers, {signal});
    begin();
    keepAsking(lookForNews, signal);
    return {update};

    function begin() {
        document.title = 'Inbox · Wexel';
        filters.show(parameters);
        if (lastShown.parameters === parameters.toString() && lastShown.reports.length) {
            list.show(lastShown.reports, parameters);
            scrollTo(0, lastShown.scroll);
            list.focus(lastShown.focused);
        }
        load();
        filters.refresh().catch(() => {});
    }

    function update(next) {
        const otherApplication = next.parameters.get('bundle_id') !== parameters.get('bundle_id');
        parameters = next.parameters;
        shown = null;
        filters.show(parameters);
        scrollTo(0, 0);
        load();
        if (otherApplication)
            filters.refresh().catch(() => {});
    }

    /// Never rejects; `loaded` does.
    function load() {
        loading.abort();
        loading = new AbortController();
        isLoading = true;
        isRefused = false;
        list.element.setAttribute('aria-busy', 'true');
        loaded = get('reports?' + listQuery(parameters), loading.signal).then(render);
        return loaded.catch(giveUp);
    }

    /// The receiver has no answer just now: the next turn asks again. Or it did not take the question: asking again changes nothing.
    function giveUp(error) {
        if (error.name === 'AbortError')
            return; // another list is on its way
        settle();
        isRefused = error.status >= 400 && error.status < 500;
        shown = null;
        clear();
        failed(empty, error, load);
    }

    function settle() {
        isLoading = false;
        list.element.removeAttribute('aria-busy');
    }

    function clear(words = '') {
        list.show([], parameters);
        news.hidden = true;
        count.textContent = words;
        fill(paging);
    }

    /// While the receiver is away, what another search has found does not stand below this one.
    function dropOthers() {
        if (shown || lastShown.parameters === parameters.toString())
            return;
        fill(empty);
        clear('Loading…');
    }

    function render(answer) {
        const last = Math.ceil(answer.total / pageSize);
        if (pageNumber(parameters) > Math.max(1, last))
            return replace(address('reports', null, changed(parameters, {page: last > 1 ? String(last) : ''})));
        const seen = shown?.newest ?? newFrom;
        newFrom = undefined;
        shown = {...answer, top: answer.reports[0]?.id};
        listed ??= answer.newest;
        settle();
        list.show(answer.reports, parameters, seen);
        news.hidden = true;
        Object.assign(lastShown, {parameters: parameters.toString(), reports: answer.reports});
        count.textContent = plural(answer.total, 'report');
        const isBare = answer.total === 0 && !isFiltered(parameters);
        count.hidden = isBare; // filters would have nothing to choose from
        filters.element.hidden = isBare;
        fill(empty, answer.total > 0 ? null : isFiltered(parameters) ? nothingFound() : emptyInbox());
        if (paging.contains(document.activeElement))
            place.focus({preventScroll: true}); // the link goes
        fill(paging, pagingLinks(answer.total));
    }

    /// Asks for the first report only; the rest is asked for when there is something to show.
    async function lookForNews() {
        if (!shown)
            return isLoading || isRefused || load();
        const asked = parameters;
        const query = listQuery(parameters);
        query.set('page', 1);
        query.set('size', 1);
        const now = await get('reports?' + query, signal);
        if (asked !== parameters || !shown)
            return;
        if (now.newest !== listed) {
            listed = now.newest;
            refreshLists();
        }
        const top = pageNumber(parameters) === 1 ? now.reports[0]?.id : shown.top;
        if (now.total === shown.total && top === shown.top)
            return;
        const grown = now.total > shown.total || now.newest > shown.newest;
        if (grown && (scrollY > atTop || pageNumber(parameters) > 1))
            offerNews(Math.max(1, now.total - shown.total));
        else
            await load();
    }

    function offerNews(number) {
        news.textContent = plural(number, 'new report');
        news.hidden = false;
    }

    function showNews() {
        scrollTo(0, 0);
        if (pageNumber(parameters) > 1 || order(parameters) !== '-received') {
            newFrom = shown?.newest;
            return go(address('reports', null, changed(parameters, {sort: ''})));
        }
        load();
    }

    function refreshLists() {
        filters.refresh().catch(() => {});
        refreshApplications(signal).catch(() => {});
    }

    function pagingLinks(total) {
        const page = pageNumber(parameters);
        const last = Math.max(1, Math.ceil(total / pageSize));
        if (last === 1 && page === 1)
            return null;
        const link = (to, name, picture) => to < 1 || to > last ? el('span.button.is-off', icon(picture))
            : el('a.button', {href: address('reports', null, changed(parameters, {page: to > 1 ? String(to) : ''})), 'aria-label': name}, icon(picture));
        const first = (page - 1) * pageSize + 1;
        return [link(page - 1, 'Previous page', 'back'),
            el('span', `${integer(first)}–${integer(Math.min(total, page * pageSize))} of ${integer(total)}`),
            link(page + 1, 'Next page', 'next')];
    }
}
