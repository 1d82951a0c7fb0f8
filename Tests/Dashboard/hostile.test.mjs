// Nothing that a report says is ever run, followed or believed.

import assert from 'node:assert/strict';
import {after, before, test} from 'node:test';
import {checkPage, checkWidth, openBrowser, openInbox} from './browser.mjs';
import {picture, startReceiver} from './receiver.mjs';

const attack = '<img src=x onerror="window.__pwned=1;alert(1)"><script>window.__pwned=1</script>"\'--><svg onload=alert(1)>';
const time = '2026-01-02T03:04:05.678Z';
const overridden = 'invoice\u202Egnp.exe';
let browser;
let receiver;
let page;

const request = {method: attack, statuc_code: attack, url: 'javascript:window.__pwned=1', request_body: attack, response_body: `{"${attack.replaceAll('"', '')}": "x"}`,
    request_headers: {[attack]: attack, ['__proto__']: 'x'}, response_headers: {a: {b: [attack]}}, timestamp: time, duration: 0.5};
const scripted = {
    title: attack, description: `${attack}\n${attack}`, tester_email: 'a@b.example?cc=victim@example.org&body=x', app_version: attack,
    build_version: attack, device: attack, os_version: attack, current_view: attack, quick_facts: attack, locale: attack, timezone: attack,
    issue_reported_time: time, network_type: attack, network_name: overridden, [attack]: attack, battery_status: attack,
    permissions: [{name: attack, state: attack}], sessions: [{state: attack, time_occurred: time}],
    blackbox: {network_usage_history: [{type: attack, name: attack, time_occurred: time}], cpu_usage_history: [{value: '5', time_occurred: time}]},
    log: {user_taps: [{class_name: attack, property: attack, view: attack, timestamp: time}], network_requests: [request, {...request, url: 'https://example.org/?' + attack}]},
};
const drawing = '<svg xmlns="http://www.w3.org/2000/svg"><script>parent.__pwned=1;alert(1)</script></svg>';
const misshapen = {
    description: {a: [1, {b: null}]}, tester_email: ['x'], app_version: 1e308, device: [[[]]], permissions: 'on', sessions: {}, issue_reported_time: 12,
    battery_level: 'NaN', used_memory: '-5', available_memory: 'Infinity', used_disk_space: {}, screen_width: -1, screen_height: 'tall', quick_facts: 7,
    timezone: 'No/Where', locale: '%%%', device_orientation: 99, files: [null, 5, {url: 7}, {url: 'javascript:alert(1)'}], screenshot_url: 'javascript:alert(1)',
    blackbox: {cpu_usage_history: [null, 5, [], {value: 'x', time_occurred: time}, {value: '1', time_occurred: '99999-13-45'}], disk_space_usage_history: {length: 5},
        battery_usage_history: [{level: '9e999', status: {}, time_occurred: '0001-01-01T00:00:00.000Z'}]},
    log: {user_taps: [{timestamp: '9999-12-31T23:59:59.999Z'}], network_requests: [{timestamp: time, request_headers: [1], duration: 'x', url: 5}]},
};

before(async () => {
    [browser, receiver] = await Promise.all([openBrowser(), startReceiver()]);
    const {send} = receiver.application;
    await send(scripted, {screenshot: picture, files: [{name: attack, bytes: '<script>window.__pwned=1</script>', type: 'text/html'},
        {name: 'drawing.svg', bytes: drawing, type: 'image/svg+xml'}, {name: overridden, bytes: 'MZ'}, picture]});
    await send(misshapen);
    await send({description: 'Long. ' + 'word '.repeat(1024 * 1024), screen_width: 1, quick_facts: 'x'.repeat(300000)});
    await send({description: `\u202E${'\u05E9'.repeat(300)}\n\u2066second`, tester_email: 'ada@example.org', device: 'x'.repeat(5000)});
    page = await openInbox(browser, receiver);
});
after(async () => {
    await browser?.close();
    await receiver?.stop();
});

async function open(id) {
    await page.goto(`${receiver.dashboard}#/reports/${id}`);
    await page.locator(`.report[data-id="${id}"] .facts`).waitFor();
}

test('script in every field stays text, in the list and in the report', async () => {
    assert.equal(await page.locator('.row').count(), 4);
    await open(1);
    await page.getByRole('heading', {level: 1}).getByText('<img src=x').waitFor();
    for (const row of await page.locator('tr.request').all())
        await row.click();
    await page.locator('.raw summary').click();
    await page.locator('.raw pre').waitFor();
    await page.locator('.stack').hover();
    assert.equal(await page.locator('a[href^="javascript:" i], iframe, object, embed, [onerror], [onload], main script').count(), 0);
    assert.equal(await page.locator('a[href^="mailto:"]').count(), 0, 'an address with more than an address in it is no link');
    assert.equal(await page.locator('.detail a', {hasText: 'Open'}).count(), 1, 'only addresses of the web can be opened');
    await checkPage(page);
});

test('only raster images are shown; all else is a download whose name tells the truth', async () => {
    assert.equal(await page.locator('.file').count(), 4);
    assert.equal(await page.locator('.file img').count(), 1);
    assert.equal(await page.locator('.file', {hasText: 'invoice\\u202egnp.exe'}).count(), 1, 'what turns the name round is written out');
    for (const link of await page.locator('.file a').all()) {
        const answer = await page.request.get(await link.evaluate((each) => each.href));
        assert.equal(answer.headers()['x-content-type-options'], 'nosniff');
        assert.match(answer.headers()['content-type'], /^(image\/png|application\/octet-stream)$/);
        if (!answer.headers()['content-type'].startsWith('image/'))
            assert.match(answer.headers()['content-disposition'], /^attachment/);
    }
});

test('values of the wrong kind and texts without end leave the page usable', async () => {
    await open(2);
    await page.locator('.fact', {hasText: 'Time zone'}).getByText('No/Where').waitFor();
    await open(3);
    assert.ok((await page.locator('.prose').first().textContent()).length < 50000);
    await page.getByRole('button', {name: /^Show all 5,\d{3},\d{3} characters$/}).click();
    await page.waitForFunction(() => document.querySelector('.prose').textContent.length > 5e6);
    await open(4);
    await page.getByRole('link', {name: 'ada@example.org'}).waitFor();
    await page.setViewportSize({width: 390, height: 844});
    for (const id of [1, 2, 4]) {
        await open(id);
        await checkWidth(page);
    }
    await checkPage(page);
});
