// What the address says of the list (search, filters, order, page), as what the receiver is asked.

import {asNumber} from './text.js';

export const pageSize = 50;
export const spans = {'1h': 'Last hour', '24h': 'Last 24 hours', '7d': 'Last 7 days', '30d': 'Last 30 days'};
export const orders = {'-received': 'Newest first', received: 'Oldest first', bundle_id: 'Application', tester: 'Tester',
    device: 'Device', '-app_version': 'Version'};
export const filterNames = ['search', 'bundle_id', 'version', 'device', 'time', 'from', 'to'];

const hour = 3600 * 1000;
const spanLengths = {'1h': hour, '24h': 24 * hour, '7d': 7 * 24 * hour, '30d': 30 * 24 * hour};

export function pageNumber(parameters) {
    return Math.max(1, Math.floor(asNumber(parameters.get('page')) ?? 1));
}

export function order(parameters) {
    const wanted = parameters.get('sort');
    return Object.hasOwn(orders, wanted) ? wanted : '-received';
}

export function isFiltered(parameters) {
    return filterNames.some((name) => parameters.get(name));
}

/// The filters alone: what the reports have in common, in no order and on no page.
export function filterQuery(parameters, now = Date.now()) {
    const query = new URLSearchParams();
    for (const name of ['search', 'bundle_id', 'version', 'device'])
        if (parameters.get(name))
            query.set(name, parameters.get(name));
    const span = spanLengths[parameters.get('time')];
    const from = span ? now - now % 60000 - span : startOfDay(parameters.get('from'), 0);
    const to = span ? null : startOfDay(parameters.get('to'), 1);
    if (from !== null)
        query.set('from', from);
    if (to !== null)
        query.set('to', to);
    return query;
}

export function listQuery(parameters, now) {
    const query = filterQuery(parameters, now);
    query.set('sort', order(parameters));
    query.set('page', pageNumber(parameters));
    query.set('size', pageSize);
    return query;
}

/// The parameters with this changed; a changed filter leads back to the first page.
export function changed(parameters, changes) {
    const result = new URLSearchParams(parameters);
    result.delete('page');
    for (const [name, value] of Object.entries(changes))
        if (value)
            result.set(name, value);
        else
            result.delete(name);
    return result;
}

/// Local midnight of "2026-11-21" and some days later; null for another text.
function startOfDay(text, daysLater) {
    const match = /^(\d{4})-(\d\d)-(\d\d)$/.exec(text ?? '');
    return match ? new Date(+match[1], match[2] - 1, +match[3] + daysLater).getTime() : null;
}
