// The line above the list: search, filters and order. It shows what the address says and changes the address.

import {get} from './api.js';
import {knownApplications, onApplications} from './applicationNames.js';
import {el, fill} from './dom.js';
import {icon} from './icons.js';
import {changed, filterNames, isFiltered, order, orders, spans} from './inboxQuery.js';
import {address, current, go, replace} from './router.js';
import {visible} from './text.js';

const typingPause = 200; // milliseconds

/// {element, clear, show(parameters), refresh(), focusSearch()}: `clear` is a button for another place. `toFirst()` leads from the search to what it found.
export function buildFilters({signal, toFirst}) {
    let timer = 0;
    let written = ''; // the search that the field has put into the address
    let wantsDays = false; // "Between two days" is chosen, but there is no day yet
    const search = el('input', {type: 'search', placeholder: 'Search reports', 'aria-label': 'Search the reports', autocomplete: 'off', spellcheck: 'false', enterkeyhint: 'search'});
    search.addEventListener('input', () => {
        clearTimeout(timer);
        timer = setTimeout(find, typingPause);
    });
    search.addEventListener('keydown', leaveSearch);
    signal.addEventListener('abort', () => clearTimeout(timer));
    const application = select('Application', 'bundle_id');
    const version = select('Version', 'version');
    const device = select('Device', 'device');
    const time = select('Time', 'time');
    const days = el('span.days', {hidden: true}, day('from', 'From'), el('span.faint', '–'), day('to', 'To'));
    const sort = select('Order', 'sort');
    const clear = el('button.quiet.small', {type: 'button', onclick: clearAll}, 'Clear filters');
    const fields = el('.filters', application, version, device, time, days, sort);
    const toggle = el('button.filter-toggle', {type: 'button', 'aria-expanded': 'false', onclick: () => {
        toggle.setAttribute('aria-expanded', String(fields.classList.toggle('is-open')));
    }}, icon('filter'), el('span', 'Filters'));
    const element = el('search.toolbar', el('label.search-field', icon('search'), search, el('kbd', '/')), toggle, fields);
    let known = {versions: [], devices: []};
    onApplications(() => show(current().parameters), signal);

    function show(parameters) {
        const wanted = parameters.get('search') ?? '';
        if (wanted !== written) {
            clearTimeout(timer);
            search.value = written = wanted;
        }
        options(application, knownApplications().map(applicationOption), parameters.get('bundle_id'), 'All applications');
        options(version, known.versions, parameters.get('version'), 'All versions');
        options(device, known.devices, parameters.get('device'), 'All devices');
        const isBetween = parameters.has('from') || parameters.has('to');
        wantsDays &&= !isBetween && !parameters.has('time');
        const between = isBetween || wantsDays;
        options(time, [...Object.entries(spans), ['between', 'Between two days']],
            between ? 'between' : parameters.get('time'), 'Any time');
        options(sort, Object.entries(orders), order(parameters));
        days.hidden = !between;
        for (const input of days.querySelectorAll('input'))
            if (input.value !== (parameters.get(input.name) ?? ''))
                input.value = parameters.get(input.name) ?? '';
        clear.hidden = !isFiltered(parameters);
        const count = filterNames.filter((name) => name !== 'search' && parameters.get(name)).length;
        toggle.lastChild.textContent = count ? `Filters (${count})` : 'Filters';
    }

    function find() {
        clearTimeout(timer);
        const wanted = search.value.trim();
        if (wanted === written)
            return;
        written = wanted;
        replace(target({search: wanted}));
    }

    function leaveSearch(event) {
        if (event.isComposing)
            return; // the key is for what is being composed
        if (event.key === 'Escape') {
            search.value = '';
            find();
            element.closest('main').focus({preventScroll: true});
        } else if (event.key === 'Enter' || event.key === 'ArrowDown') {
            find();
            toFirst();
        } else {
            return;
        }
        event.preventDefault();
    }

    function clearAll() {
        wantsDays = false;
        go(address('reports'));
        element.closest('main').focus({preventScroll: true}); // the button goes
    }

    time.addEventListener('change', () => {
        wantsDays = time.value === 'between';
        days.hidden = !wantsDays;
    });
    return {
        element,
        clear,
        show,
        focusSearch() {
            search.focus();
            search.select();
        },
        async refresh() {
            const bundleId = current().parameters.get('bundle_id');
            const query = bundleId ? '?' + new URLSearchParams({bundle_id: bundleId}) : '';
            known = await get('filters' + query, signal);
            show(current().parameters);
        },
    };
}

function applicationOption({bundle_id: bundleId, archived}) {
    return [bundleId, visible(bundleId, 60) + (archived ? ' (archived)' : '')];
}

function target(changes) {
    return address('reports', null, changed(current().parameters, changes));
}

function select(label, name) {
    return el('select', {'aria-label': label, name, onchange: ({target: {value}}) => {
        if (name === 'time')
            return go(target(value === 'between' ? {time: ''} : {time: value, from: '', to: ''}));
        go(target({[name]: name === 'sort' && value === '-received' ? '' : value}));
    }});
}

function day(name, label) {
    return el('input', {type: 'date', name, 'aria-label': label,
        onchange: (event) => go(target({[name]: event.target.value, time: ''}))});
}

/// Entries are texts, or pairs of value and text. The chosen one is there even if it is unknown. What the reader may be choosing
/// from just now stays as it is.
function options(element, entries, chosen, all = null) {
    const pairs = entries.map((entry) => Array.isArray(entry) ? entry : [entry, visible(entry, 60)]).filter(([value]) => value);
    if (chosen && !pairs.some(([value]) => value === chosen))
        pairs.push([chosen, visible(chosen, 60)]);
    if (all !== null)
        pairs.unshift(['', all]);
    const there = [...element.options].map(({value, text}) => [value, text]);
    const isInUse = document.activeElement === element && there.some(([value]) => value === (chosen ?? ''));
    if (!isInUse && JSON.stringify(there) !== JSON.stringify(pairs))
        fill(element, pairs.map(([value, text]) => el('option', {value}, text)));
    element.value = chosen ?? '';
    element.classList.toggle('is-set', all !== null && Boolean(chosen));
}
